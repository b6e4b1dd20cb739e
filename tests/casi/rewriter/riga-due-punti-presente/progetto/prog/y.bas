Attribute VB_Name = "y"
Option Explicit
Sub y()
x = 1
End Sub
