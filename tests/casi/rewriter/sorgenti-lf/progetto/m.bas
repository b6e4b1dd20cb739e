Attribute VB_Name = "m"
Option Explicit
Sub m()
x = 1
End Sub
