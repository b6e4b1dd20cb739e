Attribute VB_Name = "Zeta"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
