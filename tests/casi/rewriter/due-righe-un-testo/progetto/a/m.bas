Attribute VB_Name = "primo"
Option Explicit
Sub primo()
x = 1
End Sub
