VERSION 5.00
Begin VB.Form F
   Caption         =   "F"
   BeginProperty Font
      Size            =   8.25
   EndProperty
End
Attribute VB_Name = "F"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Private Sub UnaRiga()
  If a Then b
  If c Then d
  x = 1
End Sub
tra = 1
Private Sub Ciclo()
  While a
  Wend
End Sub
Private Function Avanzo()
  End If
  Next
  Loop
  End With
  End Select
End Function
Private Sub AltroAvanzo()
  Else
  x = 1
End Sub
Property Get Misto()
  For i = 1 To 2
  End If
  If a Then
  Next
End Property
Private Property Get Ignota()
  If a Then b
End Property
Sub Senza()
  Do
Sub Dopo()
  For i = 1 To 3
  Else
    x = 1
  Next
End Sub
Friend Sub Amica()
  End  If
End Sub
End With
fine = 1
