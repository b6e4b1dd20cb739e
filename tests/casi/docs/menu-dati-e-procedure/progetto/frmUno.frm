VERSION 5.00
Begin VB.Form frmUno
   Caption         =   "Vedi frmDue.Show"
   Begin VB.Data Data1
      DatabaseName    =   "C:\x.mdb"
      RecordSource    =   "Clienti"
   End
   Begin MSAdodcLib.Adodc Adodc1
      OLEDBString     =   "Provider=x"
      RecordSource    =   "select *"
   End
   Begin VB.Data Data2
      DatabaseName    =   "C:\y.mdb"
   End
   Begin VB.Menu MnuFile
      Caption         =   "&File"
      Begin VB.Menu MnuEsci
         Enabled         =   0   'False
         Caption         =   "Esci"
      End
   End
End
Attribute VB_Name = "frmUno"
Attribute VB_Exposed = False
Option Explicit
Private Type Riga
Private Sub Form_Load() 'perché <b>
    If Ok Then frmDue.Show
    Sfondo.Msg1.Show
    Me.Show
End Sub
Public Function Somma(a, _
    b) As Long
Sub Nascosta()
