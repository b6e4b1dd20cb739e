Attribute VB_Name = "secondo"
Option Explicit
Sub secondo()
x = 1
End Sub
