VERSION 5.00
Begin VB.Form A
   For = 1
   Do
End
Attribute VB_Exposed = False
Option Explicit
Private Sub b()
  y = 2
End Sub
