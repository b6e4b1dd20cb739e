Attribute VB_Name = "c"
Option Explicit
Sub c()
x = 1
End Sub
