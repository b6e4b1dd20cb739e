               VERSION 5.00
               Object = "{67397AA1-7FB1-11D0-B148-00A0C922E820}#6.0#0"; "MSADODC.OCX"
               Begin VB.Form frmArticoli
               Caption         =   "Anagrafica articoli"
               ClientHeight    =   3675
               ClientLeft      =   60
               ClientTop       =   345
               ClientWidth     =   6735
               Icon            =   "frmArticoli.frx":0000
               KeyPreview      =   -1  'True
               LinkTopic       =   "Form1"
               MDIChild        =   -1  'True
               ScaleHeight     =   3675
               ScaleWidth      =   6735
               Begin VB.CommandButton cmdAzione
               Caption         =   "&Salva"
               Height          =   375
               Index           =   0
               Left            =   4080
               Picture         =   "frmArticoli.frx":00A2
               TabIndex        =   4
               Top             =   3120
               Width           =   1215
          End
               Begin VB.CommandButton cmdAzione
               Cancel          =   -1  'True
               Caption         =   "&Chiudi"
               Height          =   375
               Index           =   1
               Left            =   5400
               TabIndex        =   5
               Top             =   3120
               Width           =   1215
          End
               Begin VB.Data datArticoli
               Caption         =   "Articoli"
               Connect         =   "Access"
               DatabaseName    =   ""
               DefaultCursorType=   0  'DefaultCursor
               DefaultType     =   2  'UseODBC
               Exclusive       =   0   'False
               Height          =   345
               Left            =   120
               Options         =   0
               ReadOnly        =   0   'False
               RecordsetType   =   1  'Dynaset
               RecordSource    =   "Articoli"
               Top             =   3120
               Width           =   3735
          End
               Begin VB.Frame fraDati
               Caption         =   "Dati dell'articolo"
               Height          =   2415
               Left            =   120
               TabIndex        =   0
               Top             =   120
               Width           =   6495
               Begin VB.TextBox txtCampo
               DataField       =   "Codice"
               DataSource      =   "datArticoli"
               Height          =   315
               Index           =   0
               Left            =   1560
               MaxLength       =   12
               TabIndex        =   1
               Top             =   360
               Width           =   1815
          End
               Begin VB.TextBox txtCampo
               DataField       =   "Descrizione"
               DataSource      =   "datArticoli"
               Height          =   315
               Index           =   1
               Left            =   1560
               TabIndex        =   2
               Top             =   840
               Width           =   4695
          End
               Begin VB.TextBox txtCampo
               Alignment       =   1  'Right Justify
               DataField       =   "ScortaMinima"
               DataSource      =   "datArticoli"
               Height          =   315
               Index           =   2
               Left            =   1560
               TabIndex        =   3
               Top             =   1320
               Width           =   975
          End
               Begin VB.Label lblGiacenza
               Caption         =   "Quantità in giacenza: -"
               Height          =   255
               Left            =   240
               TabIndex        =   6
               Top             =   1920
               Width           =   6015
          End
          End
               Begin MSAdodcLib.Adodc adoFornitori
               Height          =   330
               Left            =   120
               Top             =   2640
               Width           =   6495
               _ExtentX        =   11456
               _ExtentY        =   582
               ConnectMode     =   0
               CursorLocation  =   3
               IsolationLevel  =   -1
               ConnectionTimeout=   15
               CommandTimeout  =   30
               CursorType      =   3
               LockType        =   1
               CommandType     =   8
               CursorOptions   =   0
               CacheSize       =   50
               MaxRecords      =   0
               BOFAction       =   0
               EOFAction       =   0
               ConnectStringType=   1
               Appearance      =   1
               BackColor       =   -2147483643
               ForeColor       =   -2147483640
               Orientation     =   0
               Enabled         =   -1
               Connect         =   ""
               OLEDBString     =   ""
               OLEDBFile       =   ""
               DataSourceName  =   ""
               OtherAttributes =   ""
               UserName        =   ""
               Password        =   ""
               RecordSource    =   ""
               Caption         =   "Fornitore abituale"
               BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851}
               Name            =   "MS Sans Serif"
               Size            =   8.25
               Charset         =   0
               Weight          =   400
               Underline       =   0   'False
               Italic          =   0   'False
               Strikethrough   =   0   'False
          EndProperty
               _Version        =   393216
          End
          End
Attribute VB_Name = "frmArticoli"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
               Option Explicit
               ' Anagrafica articoli.
               ' Il controllo Data è rimasto dalla prima versione, i fornitori passano da ADO.
               Private moArticolo As clsArticolo
          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub Form_Load()
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim i As Integer
               datArticoli.DatabaseName = gsArchivio
               datArticoli.Refresh

               With adoFornitori
                     .ConnectionString = StringaConnessione(gsArchivio)
                     .CommandType = adCmdText
                     .RecordSource = "SELECT CodFornitore, RagioneSociale FROM Fornitori ORDER BY RagioneSociale"
                     .Refresh
               End With


                For i = txtCampo.LBound To txtCampo.UBound: txtCampo(i).ToolTipText = txtCampo(i).DataField: Next i
                 End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub Form_Unload(Cancel As Integer)
          '*                                                                                                                *
          '******************************************************************************************************************

               If gbModificato Then _

                     If MsgBox("Abbandono le modifiche?", vbYesNo) = vbNo Then Cancel = True

                           If Cancel = 0 Then gbModificato = False
                            End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Sub NuovoArticolo()
          '*                                                                                                                *
          '******************************************************************************************************************
               datArticoli.Recordset.AddNew
               gbModificato = True
               txtCampo(0).SetFocus
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub datArticoli_Reposition()
          '*                                                                                                                *
          '******************************************************************************************************************
               On Error Resume Next        ' a recordset vuoto i campi non si leggono
               Set moArticolo = New clsArticolo
               moArticolo.Codice = txtCampo(0).Text
               moArticolo.ScortaMinima = Val(txtCampo(2).Text)
               lblGiacenza.Caption = "Quantità in giacenza: " & FormattaQuantità(moArticolo.Giacenza)

               If moArticolo.SottoScorta Then lblGiacenza.Caption = lblGiacenza.Caption & _
                     " - da ordinare: " & DaOrdinare(moArticolo.Giacenza, moArticolo.ScortaMinima)

                     If moArticolo.SottoScorta Then lblGiacenza.ForeColor = vbRed Else lblGiacenza.ForeColor = vbBlack
                           adoFornitori.Recordset.MoveFirst
                           adoFornitori.Recordset.Find "CodFornitore = '" & datArticoli.Recordset!CodFornitore & "'"
                      End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub adoFornitori_MoveComplete(ByVal adReason As ADODB.EventReasonEnum, _
          '*                                                                                                                *
          '******************************************************************************************************************
               ByVal pError As ADODB.Error, adStatus As ADODB.EventStatusEnum, _
               ByVal pRecordset As ADODB.Recordset)

               If pRecordset.BOF Or pRecordset.EOF Then Exit Sub
                     adoFornitori.Caption = "Fornitore: " & pRecordset!RagioneSociale
                End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub txtCampo_Change(Index As Integer)
          '*                                                                                                                *
          '******************************************************************************************************************

               If txtCampo(Index).DataChanged Then gbModificato = True
                End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub cmdAzione_Click(Index As Integer)
          '*                                                                                                                *
          '******************************************************************************************************************

               Select Case Index

               Case 0

                     If Len(Trim$(txtCampo(0).Text)) = 0 Then
                           MsgBox "Il codice è obbligatorio.", vbExclamation
                           txtCampo(0).SetFocus
                      Exit Sub
                     ElseIf Not IsNumeric(txtCampo(2).Text) Then
                           txtCampo(2).Text = "0"
                     End If

                    datArticoli.UpdateRecord
                    gbModificato = False

              Case 1: Unload Me

              Case Else
                    Debug.Assert False ' non deve capitare
              End Select

           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
