Attribute VB_Name = "d"
Option Explicit
Sub d()
x = 1
End Sub
