               VERSION 5.00
               Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "COMDLG32.OCX"
               Begin VB.MDIForm frmPrincipale
               BackColor       =   &H8000000C&
               Caption         =   "Magazzino"
               ClientHeight    =   6150
               ClientLeft      =   165
               ClientTop       =   735
               ClientWidth     =   9060
               Icon            =   "frmPrincipale.frx":0000
               LinkTopic       =   "MDIForm1"
               StartUpPosition =   3  'Windows Default
               WindowState     =   2  'Maximized
               Begin VB.PictureBox picStato
               Align           =   2  'Align Bottom
               Appearance      =   0  'Flat
               BackColor       =   &H8000000F&
               BorderStyle     =   0  'None
               ForeColor       =   &H80000008&
               Height          =   315
               Left            =   0
               ScaleHeight     =   315
               ScaleWidth      =   9060
               TabIndex        =   0
               Top             =   5835
               Width           =   9060
               Begin VB.Timer tmrOra
               Interval        =   1000
               Left            =   8160
               Top             =   0
          End
               Begin VB.Label lblStato
               Caption         =   "Pronto"
               Height          =   225
               Left            =   60
               TabIndex        =   1
               Top             =   60
               Width           =   7095
          End
          End
               Begin MSComDlg.CommonDialog dlgFile
               Left            =   240
               Top             =   240
               _ExtentX        =   847
               _ExtentY        =   847
               _Version        =   393216
          End
               Begin VB.Menu mnuFile
               Caption         =   "&File"
               Begin VB.Menu mnuFileNuovo
               Caption         =   "&Nuovo articolo"
               Shortcut        =   ^N
          End
               Begin VB.Menu mnuFileCopia
               Caption         =   "&Copia di sicurezza"
               Begin VB.Menu mnuFileCopiaCrea
               Caption         =   "&Crea..."
               Shortcut        =   ^S
          End
               Begin VB.Menu mnuFileCopiaRipristina
               Caption         =   "&Ripristina..."
          End
          End
               Begin VB.Menu mnuFileSep1
               Caption         =   "-"
          End
               Begin VB.Menu mnuFileEsci
               Caption         =   "&Esci"
               Shortcut        =   ^Q
          End
          End
               Begin VB.Menu mnuArchivi
               Caption         =   "&Archivi"
               Begin VB.Menu mnuArchiviArticoli
               Caption         =   "&Articoli"
               Shortcut        =   {F2}
          End
               Begin VB.Menu mnuArchiviMovimenti
               Caption         =   "&Movimenti"
               Begin VB.Menu mnuMovimento
               Caption         =   "&Carico"
               Index           =   1
               Shortcut        =   {F3}
          End
               Begin VB.Menu mnuMovimento
               Caption         =   "&Scarico"
               Index           =   2
               Shortcut        =   {F4}
          End
               Begin VB.Menu mnuMovimento
               Caption         =   "Re&so da cliente"
               Index           =   3
          End
          End
               Begin VB.Menu mnuArchiviInventario
               Caption         =   "&Inventario && valore"
               Shortcut        =   ^I
          End
          End
               Begin VB.Menu mnuFinestra
               Caption         =   "Fi&nestra"
               WindowList      =   -1  'True
          End
               Begin VB.Menu mnuAiuto
               Caption         =   "&?"
               Begin VB.Menu mnuAiutoInfo
               Caption         =   "&Informazioni su Magazzino..."
               Shortcut        =   {F1}
          End
          End
          End
Attribute VB_Name = "frmPrincipale"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
               Option Explicit
               Private mbChiusuraForzata As Boolean
          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub MDIForm_Load()
          '*                                                                                                                *
          '******************************************************************************************************************
               Caption = NOME_PROGRAMMA & " - " & gsArchivio
               mbChiusuraForzata = False

               #If VERSIONE_COMPLETA = 0 Then
                     mnuMovimento(3).Visible = False
               #End If


                If Not ApriArchivio(gsArchivio) Then
                      mbChiusuraForzata = True         ' non c'è niente da perdere
                      MsgBox "L'archivio non è disponibile: si potrà solo consultare l'aiuto.", vbExclamation
                      mnuArchivi.Enabled = False
                      mnuFileCopiaCrea.Enabled = False
                Else
                      Stato "Archivio aperto"

                      If LeggiOpzione("Avvio", "MostraArticoli", "0") = "1" Then frmArticoli.Show
                      End If

                End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub MDIForm_QueryUnload(Cancel As Integer, UnloadMode As Integer)
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim frm As Form

               If mbChiusuraForzata Then Exit Sub
                     ' se una finestra ha dati in sospeso si chiede conferma

                     For Each frm In Forms

                           If TypeOf frm Is frmArticoli Then

                                 If gbModificato Then

                                       Select Case MsgBox("Ci sono modifiche non salvate. Esco lo stesso?", vbYesNo + vbQuestion)

                                       Case vbNo
                                             Cancel = True
                                        Exit For

                                       Case vbYes
                                             gbModificato = False
                                       End Select

                                End If

                         End If

                  Next frm

            End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub MDIForm_Unload(Cancel As Integer)
          '*                                                                                                                *
          '******************************************************************************************************************
               ChiudiArchivio
               Set gcnArchivio = Nothing
          End Sub

          'scrive nella barra in basso
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Sub Stato(ByVal sTesto As String)
          '*                                                                                                                *
          '******************************************************************************************************************
               lblStato.Caption = sTesto: lblStato.Refresh
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub tmrOra_Timer()
          '*                                                                                                                *
          '******************************************************************************************************************
               Static sUltima As String

               If Format$(Now, "hh:nn") = sUltima Then Exit Sub
                     sUltima = Format$(Now, "hh:nn")
                     Caption = NOME_PROGRAMMA & " - " & gsArchivio & "  [" & sUltima & "]"
                End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuFileNuovo_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               frmArticoli.Show
               frmArticoli.NuovoArticolo
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuFileCopiaCrea_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               On Error GoTo Errore

               With dlgFile
                     .CancelError = True      ' Annulla genera l'errore 32755
                     .DialogTitle = "Crea copia di sicurezza"
                     .Filter = "Copie (*.bak)|*.bak|Tutti i file (*.*)|*.*"
                     .FileName = "magazzino_" & Format$(Date, "yyyymmdd") & ".bak"
                     .ShowSave
                     Stato "Copia in corso…"
                     ChiudiArchivio
                     FileCopy gsArchivio, .FileName
               End With

                Fine:

                If ApriArchivio(gsArchivio) Then Stato "Pronto" Else Stato "Archivio chiuso"
                 Exit Sub
                      Errore:

                      If Err.Number <> cdlCancel Then MsgBox "Copia non riuscita: " & Err.Description, vbCritical
                            Resume Fine
                       End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuFileCopiaRipristina_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               MsgBox "Per ripristinare una copia:" & vbCrLf & vbCrLf & _
               "1. uscire dal programma;" & vbCrLf & _
               "2. rinominare il file .bak in “" & NOME_ARCHIVIO & "”;" & vbCrLf & _
               "3. riaprire il programma.", vbInformation
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuFileEsci_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               Unload Me
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuArchiviArticoli_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               frmArticoli.Show
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuMovimento_Click(Index As Integer)
          '*                                                                                                                *
          '******************************************************************************************************************

               With frmMovimenti
                     .Tipo = Index
                     .Show
                     .ZOrder
               End With

           End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuArchiviInventario_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim bVuoto As Boolean
               bVuoto = (ContaRighe("Articoli") = 0)

               If Not bVuoto Then frmInventario.Show

                     If bVuoto Then MsgBox "Nessun articolo in archivio.", vbInformation
                      End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub mnuAiutoInfo_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               frmInformazioni.Show vbModal
          End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    IF LEGGIOPZIONE("AVVIO", "MOSTRAARTICOLI", "0") = "1" THEN FRMARTICOLI
          '*    FRMARTICOLI                                      *
          '*                                                     *
          '*    FRMARTICOLI                                      *
          '*                                                     *
          '*    IF NOT BVUOTO THEN FRMINVENTARIO                 *
          '*    FRMINFORMAZIONI                                  *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
