Attribute VB_Name = "due"
Option Explicit
Sub due()
x = 1
End Sub
