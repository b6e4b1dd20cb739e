Attribute VB_Name = "a"
Option Explicit
Sub a()
x = 1
End Sub
