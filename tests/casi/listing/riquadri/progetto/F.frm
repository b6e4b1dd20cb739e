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
Private Type Prima
  a As Long
End Type
Private TypeCode As Long
Sub a()
End Sub
Private Type Dietro
  b As Long
End Type
Type Nudo
End Type
Enum E
End Enum
Exit Sub
subtotal = 1
Functional = 2
PropertyBag = 3
If q Then
Public Type Dentro
End Type
End
EndDoc
End If
Private Sub MoltoLunga(ByVal primo As Long, ByVal secondo As Long, ByVal terzo As Long, ByVal quarto As Long, ByVal quinto As Long)
End Sub
