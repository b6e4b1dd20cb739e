Attribute VB_Name = "M2"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
