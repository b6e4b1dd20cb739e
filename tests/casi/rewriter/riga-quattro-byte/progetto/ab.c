Attribute VB_Name = "corto"
Option Explicit
Sub corto()
x = 1
End Sub
