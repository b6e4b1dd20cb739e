Attribute VB_Name = "A"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
