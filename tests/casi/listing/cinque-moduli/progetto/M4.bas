Attribute VB_Name = "M4"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
