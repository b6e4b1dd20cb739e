Attribute VB_Name = "M6"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
