VERSION 5.00
Begin VB.Form F
   Begin VB.Data Data1
      DatabaseName    =   "a.mdb"
      Options         =   0
      RecordSource    =   "Clienti"
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
   End
End
Attribute VB_Name = "F"
Private Sub a()
