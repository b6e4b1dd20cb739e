Attribute VB_Name = "M3"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
