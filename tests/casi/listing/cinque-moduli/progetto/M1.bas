Attribute VB_Name = "M1"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
