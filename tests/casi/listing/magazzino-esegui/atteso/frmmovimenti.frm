               VERSION 5.00
               Object = "{67397AA1-7FB1-11D0-B148-00A0C922E820}#6.0#0"; "MSADODC.OCX"
               Begin VB.Form frmMovimenti
               Caption         =   "Movimenti"
               ClientHeight    =   3015
               ClientLeft      =   60
               ClientTop       =   345
               ClientWidth     =   6255
               LinkTopic       =   "Form1"
               MDIChild        =   -1  'True
               ScaleHeight     =   3015
               ScaleWidth      =   6255
               Begin VB.TextBox txtNote
               Height          =   315
               Left            =   1560
               TabIndex        =   3
               Top             =   1440
               Width           =   4575
          End
               Begin VB.TextBox txtPrezzo
               Alignment       =   1  'Right Justify
               Height          =   315
               Left            =   1560
               TabIndex        =   2
               Text            =   "0,00"
               Top             =   960
               Width           =   1335
          End
               Begin VB.TextBox txtQuantita
               Alignment       =   1  'Right Justify
               Height          =   315
               Left            =   1560
               TabIndex        =   1
               Top             =   480
               Width           =   1335
          End
               Begin VB.CommandButton cmdRegistra
               Caption         =   "&Registra"
               Default         =   -1  'True
               Height          =   375
               Left            =   4920
               TabIndex        =   4
               Top             =   2520
               Width           =   1215
          End
               Begin VB.Data datMovimenti
               Caption         =   "Movimenti già registrati"
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
               RecordSource    =   "Movimenti"
               Top             =   2520
               Width           =   4575
          End
               Begin MSAdodcLib.Adodc adoArticoli
               Height          =   330
               Left            =   120
               Top             =   2040
               Width           =   6015
               _ExtentX        =   10610
               _ExtentY        =   582
               ConnectMode     =   0
               CursorLocation  =   3
               IsolationLevel  =   -1
               ConnectionTimeout=   15
               CommandTimeout  =   30
               CursorType      =   3
               LockType        =   3
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
               Caption         =   "Articolo"
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
               Begin VB.Label lblTipo
               Caption         =   "Quantità, prezzo (€) e note del movimento"
               BeginProperty Font
               Name            =   "MS Sans Serif"
               Size            =   8.25
               Charset         =   0
               Weight          =   700
               Underline       =   0   'False
               Italic          =   0   'False
               Strikethrough   =   0   'False
          EndProperty
               Height          =   255
               Left            =   120
               TabIndex        =   0
               Top             =   120
               Width           =   6015
          End
          End
Attribute VB_Name = "frmMovimenti"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
               Option Explicit
               Private meTipo As eTipoMovimento
               Private mlRegistrati As Long
        '*****************************************************************************************************
        '*                                                                                                   *
             Public Property Get Tipo() As eTipoMovimento
        '*                                                                                                   *
        '*****************************************************************************************************
             Tipo = meTipo
        End Property
        '*****************************************************************************************************
        '*                                                                                                   *
             Public Property Let Tipo(ByVal eNuovo As eTipoMovimento)
        '*                                                                                                   *
        '*****************************************************************************************************
             meTipo = eNuovo
             Caption = "Movimenti - " & NomeTipo(meTipo)
        End Property
             ' prezzo scritto dall'utente, con la virgola o col punto
             Private Property Get PrezzoDigitato() As Currency
             PrezzoDigitato = CCur(Val(Replace(txtPrezzo.Text, ",", ".")))
        End Property
          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub Form_Load()
          '*                                                                                                                *
          '******************************************************************************************************************
               datMovimenti.DatabaseName = gsArchivio
               datMovimenti.Refresh
               adoArticoli.ConnectionString = StringaConnessione(gsArchivio)
               adoArticoli.CommandType = adCmdText
               adoArticoli.RecordSource = "SELECT * FROM Articoli ORDER BY Codice"
               adoArticoli.Refresh

               If meTipo = 0 Then Tipo = tmCarico
                End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub adoArticoli_MoveComplete(ByVal adReason As ADODB.EventReasonEnum, _
          '*                                                                                                                *
          '******************************************************************************************************************
               ByVal pError As ADODB.Error, _
               adStatus As ADODB.EventStatusEnum, _
               ByVal pRecordset As ADODB.Recordset)

               If Not (pRecordset.BOF Or pRecordset.EOF) Then
                     adoArticoli.Caption = pRecordset!Codice & " - " & pRecordset!Descrizione
               End If

           End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Function Controlla() As Boolean
          '*                                                                                                                *
          '******************************************************************************************************************
               Controlla = False

               If Not SoloCifre(txtQuantita.Text) Then MsgBox "Quantità non valida.": txtQuantita.SetFocus: Exit Function

                     If adoArticoli.Recordset.EOF Then Exit Function

                           If meTipo = tmScarico Then

                                 If CLng(txtQuantita.Text) > adoArticoli.Recordset!Giacenza And _
                                       LeggiOpzione("Movimenti", "PermettiNegativi", "0") = "0" Then
                                       MsgBox "La giacenza non basta." & vbCrLf & "Perché lo scarico sia accettato, " & _
                                       "correggere la quantità.", vbExclamation
                                       Exit Function
                                 End If

                          End If

                         Controlla = True
                    End Function

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub cmdRegistra_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim lQta As Long, sCodice As String

               If Not Controlla() Then Exit Sub
                     On Error GoTo Errore
                     lQta = CLng(txtQuantita.Text): sCodice = adoArticoli.Recordset!Codice

                     If meTipo = tmScarico Then lQta = -lQta

                           With datMovimenti.Recordset
                                 .AddNew
                                 !Data = Date
                                 !Codice = sCodice
                                 !Tipo = meTipo
                                 !Quantità = lQta      ' già col segno
                                 !Prezzo = PrezzoDigitato
                                 !Note = Left$(txtNote.Text, 50)
                                 .Update
                           End With


                          #If TRACCIA_SQL Then
                                Debug.Print "movimento", sCodice, lQta
                          #Else
                                Registra NomeTipo(meTipo) & " " & sCodice & " " & lQta
                          #End If

                         AggiornaGiacenza sCodice, lQta
                         mlRegistrati = mlRegistrati + 1
                         adoArticoli.Refresh
                         txtQuantita.Text = "": txtNote.Text = "": txtQuantita.SetFocus
                    Exit Sub
                         Errore:
                         MsgBox "Movimento non registrato: " & Err.Description, vbCritical
                    End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
