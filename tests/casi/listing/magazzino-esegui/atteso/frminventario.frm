               VERSION 5.00
               Begin VB.Form frmInventario
               Caption         =   "Inventario"
               ClientHeight    =   4590
               ClientLeft      =   60
               ClientTop       =   345
               ClientWidth     =   7095
               BeginProperty Font
               Name            =   "Courier New"
               Size            =   9
               Charset         =   0
               Weight          =   400
               Underline       =   0   'False
               Italic          =   0   'False
               Strikethrough   =   0   'False
          EndProperty
               LinkTopic       =   "Form1"
               MDIChild        =   -1  'True
               ScaleHeight     =   4590
               ScaleWidth      =   7095
               Begin VB.CheckBox chkSottoScorta
               Caption         =   "Solo sotto &scorta"
               Height          =   375
               Left            =   120
               TabIndex        =   2
               Top             =   4080
               Width           =   2415
          End
               Begin VB.CommandButton cmdEsporta
               Caption         =   "&Esporta..."
               Height          =   375
               Left            =   5640
               TabIndex        =   1
               Top             =   4080
               Width           =   1335
          End
               Begin VB.ListBox lstRighe
               Height          =   3435
               IntegralHeight  =   0   'False
               Left            =   120
               TabIndex        =   0
               Top             =   120
               Width           =   6855
          End
               Begin VB.Label lblTotale
               Alignment       =   1  'Right Justify
               Caption         =   "Totale € 0,00"
               Height          =   255
               Left            =   120
               TabIndex        =   3
               Top             =   3720
               Width           =   6855
          End
          End
Attribute VB_Name = "frmInventario"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
               Option Explicit
               Private WithEvents moInventario As clsInventario
Attribute moInventario.VB_VarHelpID = -1

Private Sub Form_Load()
Set moInventario = New clsInventario
   moInventario.Carica
      Riempi
End Sub

Private Sub Form_Unload(Cancel As Integer)
   moInventario.Svuota      ' se no i riferimenti incrociati restano in memoria
Set moInventario = Nothing
      End Sub

Private Sub Form_Resize()
   If WindowState = vbMinimized Then Exit Sub
If ScaleHeight < 1500 Or ScaleWidth < 4500 Then Exit Sub
      lstRighe.Move 120, 120, ScaleWidth - 240, ScaleHeight - 1155
   lblTotale.Move 120, ScaleHeight - 870, ScaleWidth - 240
         chkSottoScorta.Top = ScaleHeight - 510
 cmdEsporta.Move ScaleWidth - 1455, ScaleHeight - 510
End Sub

Private Sub moInventario_Avanzamento(ByVal lFatti As Long, ByVal lTotale As Long)
If lTotale = 0 Then Exit Sub    ' archivio vuoto
      frmPrincipale.Stato "Lettura articoli: " & Format$(lFatti / lTotale, "0%")
End Sub

Private Sub chkSottoScorta_Click()
   Riempi
End Sub

Private Sub Riempi()
   Dim oArt As clsArticolo
 Dim curTotale As Currency

lstRighe.Clear
      For Each oArt In moInventario
   If chkSottoScorta.Value = vbUnchecked Or oArt.SottoScorta Then
With oArt
         lstRighe.AddItem Left$(.Codice & Space$(12), 12) & " " & _
   Left$(.Descrizione & Space$(30), 30) & " " & _
                  Right$(Space$(8) & FormattaQuantità(.Giacenza), 8)
      curTotale = curTotale + .Valore
 End With
   End If
         Next
lblTotale.Caption = "Totale € " & Format$(curTotale, "#,##0.00")
      frmPrincipale.Stato lstRighe.ListCount & " articoli"
End Sub

Private Sub lstRighe_DblClick()
' apre l'anagrafica sull'articolo scelto
      Dim sCodice As String
   If lstRighe.ListIndex < 0 Then Exit Sub
 sCodice = RTrim$(Left$(lstRighe.Text, 12))
With frmArticoli
         .Show
   .datArticoli.Recordset.FindFirst "Codice = '" & Apici(sCodice) & "'"
      If .datArticoli.Recordset.NoMatch Then
Beep
   End If
      End With
End Sub

'* Scrive le righe visibili in un file di testo.
'* I numeri di riga servono a Erl: tolto un errore strano nel 2001,
'* ma è prudente lasciarli.
Private Sub cmdEsporta_Click()
   Dim nFile As Integer, i As Integer
On Error GoTo Errore
10    nFile = FreeFile
20 Open gsPercorso & "inventario.txt" For Output As #nFile
30       Do While i < lstRighe.ListCount
40    If Len(Trim$(lstRighe.List(i))) = 0 Then Exit Do
50  Print #nFile, lstRighe.List(i)
60       i = i + 1
70    Loop
80 Close #nFile
      MsgBox "Scritte " & i & " righe in “inventario.txt”.", vbInformation
   Exit Sub
Errore:
      Close
 MsgBox "Errore " & Err.Number & " alla riga " & Erl & ": " & Err.Description, vbCritical
End Sub
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*                                                     *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
