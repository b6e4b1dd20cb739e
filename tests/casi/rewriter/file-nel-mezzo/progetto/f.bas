Attribute VB_Name = "f"
Option Explicit
Sub f()
x = 1
End Sub
