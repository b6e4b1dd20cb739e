VERSION 5.00
Begin VB.Form F
   Caption = "f"
End
Attribute VB_Name = "F"
Attribute VB_Exposed = False
Private Sub Form_Load()
F.Show
End Sub
