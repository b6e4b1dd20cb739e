Attribute VB_Name = "C"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
