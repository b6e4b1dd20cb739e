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
#If Prova Then
Private Sub Uno()
  x = 1
End Sub
#Else
Private Sub Due()
End Sub
#End If
Private Sub Tre()
End Sub
