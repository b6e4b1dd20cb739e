Attribute VB_Name = "fuori"
Option Explicit
Sub fuori()
x = 1
End Sub
