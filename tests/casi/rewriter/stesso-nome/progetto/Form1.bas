Attribute VB_Name = "modulo"
Option Explicit
Sub modulo()
x = 1
End Sub
