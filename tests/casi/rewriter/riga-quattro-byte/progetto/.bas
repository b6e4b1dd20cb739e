Attribute VB_Name = "punto"
Option Explicit
Sub punto()
x = 1
End Sub
