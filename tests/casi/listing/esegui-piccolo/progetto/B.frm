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
Option Explicit

Private Sub Tutti()
  For Each v In c
    If a Then
      Do While b
        Select Case v
          Case 1
            With o
.x = 1
            End With
          Case Else
            Exit Do
        End Select
      Loop
    ElseIf d Then
      Exit Sub
    Else
      Exit For
    End If
    #If Win32 Then
      x = 1
    #ElseIf Win16 Then
    #Else
    #End If
  Next v
End Sub

Private Function Base() As Long
  Exit Function
End Function
Dim dopo As Long
