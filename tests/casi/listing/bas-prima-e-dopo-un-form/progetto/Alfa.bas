Attribute VB_Name = "Alfa"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
