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
Private Function f()
End Function
#End If
x = 1
