Attribute VB_Name = "z"
Option Explicit
Sub z()
x = 1
End Sub
