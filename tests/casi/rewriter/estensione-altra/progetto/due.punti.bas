Attribute VB_Name = "o"
Option Explicit
Sub o()
x = 1
End Sub
