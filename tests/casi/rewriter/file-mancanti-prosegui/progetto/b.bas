Attribute VB_Name = "b"
Option Explicit
Sub b()
x = 1
End Sub
