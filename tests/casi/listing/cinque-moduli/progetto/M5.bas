Attribute VB_Name = "M5"
Option Explicit
Public Sub Apri()
  frmX.Show
End Sub
