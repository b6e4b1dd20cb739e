Attribute VB_Name = "x"
Option Explicit
Sub x()
x = 1
End Sub
