Attribute VB_Name = "dentro"
Option Explicit
Sub dentro()
x = 1
End Sub
