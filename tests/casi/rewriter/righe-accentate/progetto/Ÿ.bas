Attribute VB_Name = "e"
Option Explicit
Sub e()
x = 1
End Sub
