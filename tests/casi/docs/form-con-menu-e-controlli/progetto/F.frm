VERSION 5.00
Begin VB.Form F
   Caption         =   "Archivio"
   Begin VB.CommandButton Command1
      Caption         =   "Chiudi"
   End
   Begin VB.Data Data1
      Connect         =   "Access"
      DatabaseName    =   "C:\a.mdb"
      RecordSource    =   "Clienti"
   End
   Begin MSDataListLib.DataCombo Combo1
      RecordSource    =   "Tabella"
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuApri 
         Caption         =   "&Apri..."  'il primo
         Begin VB.Menu mnuRecenti 
            HelpContextID   =   5
            Caption         =   "Recenti"
         End
      End
      Begin VB.Menu mnuRiga 
         Caption         =   "-"
      End
   End
End
Attribute VB_Name = "F"
Private Sub mnuApri_Click()
End Sub
