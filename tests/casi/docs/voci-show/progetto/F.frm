Begin VB.Form F
   Tag             =   "usa frmAiuto.Show"
End
Attribute VB_Name = "F"
Private Sub a()
   frmB.Show 1
   FRMb.Show vbModal 'di nuovo
   If Ok Then frmA.Show: frmC.Show
   frmD.show
   With frmE
      .Show
   End With
   Me.Show
   Sfondo.Msg1.Show
   Sfondo.Msg2.Show
   ' frmF.Show
   y = 1 ' frmG.Show
   frmH.ShowColor
