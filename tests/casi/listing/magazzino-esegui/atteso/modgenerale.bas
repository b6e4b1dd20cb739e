Attribute VB_Name = "modGenerale"
'****************************************************************
'*  modGenerale                                                 *
'*  Costanti, variabili e procedure comuni a tutto il programma *
'*                                                              *
'*  14/02/2000  prima stesura                                   *
'*  03/12/2001  passaggio all'euro (€)                          *
'*  20/05/2003  opzioni nel file INI                            *
'****************************************************************
               Option Explicit
               Public Const NOME_PROGRAMMA As String = "Magazzino"
               Public Const NOME_ARCHIVIO As String = "magazzino.mdb"
               Private Const LUNG_MAX As Integer = 255, NOME_INI = "magazzino.ini"

               #If VERSIONE_COMPLETA Then
                     		Public Enum eTipoMovimento
                     tmCarico = 1
                     	tmScarico = 2
                     			tmReso = 3
                     	tmRettifica = 4	' solo nella	versione completa
                     		End Enum
               #Else
                     Public Enum eTipoMovimento
                     	tmCarico = 1
                     	tmScarico = 2
                End Enum
               #End If

           '****************************************************************************************************************
           '*                                                                                                              *
           Private Type tRigaRegistro
           '*                                                                                                              *
           '****************************************************************************************************************
                	Quando As Date
                Testo As String
                			Lunghezza As Integer
           End Type
                Private Declare Function GetPrivateProfileString Lib "kernel32" Alias "GetPrivateProfileStringA" _
                	(ByVal lpApplicationName As String, ByVal lpKeyName As String, _
                		ByVal lpDefault As String, ByVal lpReturnedString As String, _
                	ByVal nSize As Long, ByVal lpFileName As String) As Long
                Public gsPercorso As String				' cartella del programma, con la barra finale
                Public gsArchivio As String
                Public gbModificato As Boolean
                Public gcnArchivio As ADODB.Connection
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Sub Main()
          '*                                                                                                                *
          '******************************************************************************************************************
               	Dim sArg As String

               If App.PrevInstance Then MsgBox "Il programma è già aperto.", vbExclamation, NOME_PROGRAMMA: End
                     		gsPercorso = App.Path
                     	If Right$(gsPercorso, 1) <> "\" Then gsPercorso = gsPercorso & "\"
                     gsArchivio = gsPercorso & NOME_ARCHIVIO
                     	sArg = Trim$(Command$)
                     			If Len(sArg) > 0 Then
                     	If Dir$(sArg) <> "" Then
                     gsArchivio = sArg
                     		Else
                     	MsgBox "Non trovo l'archivio """ & sArg & """." & vbCrLf & _
                     			"Verrà aperto quello predefinito.", vbInformation, NOME_PROGRAMMA
                     		End If
                     	End If
                     AccorciaRegistro 500
                     	frmPrincipale.Show
                End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function StringaConnessione(ByVal sFile As String) As String
          '*                                                                                                                *
          '******************************************************************************************************************
               		StringaConnessione = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & sFile
          End Function

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function ApriArchivio(ByVal sFile As String) As Boolean
          '*                                                                                                                *
          '******************************************************************************************************************
               	Dim nTentativi As Integer
               		On Error GoTo Errore
               Riprova:
               nTentativi = nTentativi + 1
               	Set gcnArchivio = New ADODB.Connection
               			gcnArchivio.Open StringaConnessione(sFile)
               	ApriArchivio = True
               	Exit Function
               Errore:
               	Set gcnArchivio = Nothing
               		If nTentativi < 3 Then
               	If MsgBox(Err.Description, vbRetryCancel + vbExclamation, NOME_PROGRAMMA) = vbRetry Then Resume Riprova
               			End If
               	ApriArchivio = False
          End Function

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Sub ChiudiArchivio()
          '*                                                                                                                *
          '******************************************************************************************************************
               Rem l'archivio può essere già chiuso, quindi gli errori si ignorano
               	On Error Resume Next
               		gcnArchivio.Close
               Set gcnArchivio = Nothing
          End Sub

          'conta le righe di una tabella, -1 se non si può
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function ContaRighe(ByVal sTabella As String) As Long
          '*                                                                                                                *
          '******************************************************************************************************************
               	Dim rs As ADODB.Recordset
               ContaRighe = -1: On Error GoTo Fine
               			Set rs = gcnArchivio.Execute("SELECT COUNT(*) FROM " & sTabella)
               	ContaRighe = rs(0)
               		rs.Close
               Fine:
          End Function

               	Public Function LeggiOpzione(ByVal sSezione As String, ByVal sVoce As String, _
               				Optional ByVal sPredefinito As String = "") As String
               	Dim sBuf As String, lLen As Long
               		sBuf = String$(LUNG_MAX, vbNullChar)
               lLen = GetPrivateProfileString(sSezione, sVoce, sPredefinito, sBuf, LUNG_MAX, gsPercorso & NOME_INI)
               	LeggiOpzione = Left$(sBuf, lLen)
               	End Function
               ' Le variabili di questa routine restano vive _
               	tra una chiamata e l'altra (serve per non ripetere la data).
               Public Static Sub Registra(ByVal sTesto As String)
               	Dim dUltima As Date
               		Dim Riga As tRigaRegistro
               Dim nFile As Integer
               	nFile = FreeFile
               			With Riga
               	.Quando = Now
               .Testo = Left$(sTesto, LUNG_MAX)
               			.Lunghezza = Len(.Testo)
               	End With
               Open gsPercorso & "magazzino.log" For Append As #nFile
               	If dUltima <> Date Then Print #nFile, "--- "; Format$(Date, "dd/mm/yyyy"); " ---"
               		If Riga.Lunghezza > 0 Then Print #nFile, Format$(Riga.Quando, "hh:nn:ss"); " "; Riga.Testo
               	Close #nFile
               			dUltima = Date
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub AccorciaRegistro(ByVal nMax As Integer)
          '*                                                                                                                *
          '******************************************************************************************************************
               	Dim nFile As Integer, nRighe As Integer, sRiga As String

               If Dir$(gsPercorso & "magazzino.log") = "" Then Exit Sub
                     		nFile = FreeFile: nRighe = 0: Rem si riparte da zero
                     	Open gsPercorso & "magazzino.log" For Input As #nFile

                     While Not EOF(nFile)
                           			Line Input #nFile, sRiga
                           	nRighe = nRighe + 1
                           		Wend
                           	Close #nFile

                           If nRighe > nMax Then Kill gsPercorso & "magazzino.log"
                            End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function SoloCifre(ByVal s As String) As Boolean
          '*                                                                                                                *
          '******************************************************************************************************************
               	Dim i As Integer
               SoloCifre = (Len(s) > 0)
               		For i = 1 To Len(s)
               	Select Case Mid$(s, i, 1)
               			Case "0" To "9"
               ' va bene
               	Case Else
               		SoloCifre = False
          Exit For
               				End Select
               	Next i
          End Function

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function Apici(ByVal s As String) As String
          '*                                                                                                                *
          '******************************************************************************************************************
               	Apici = Replace(s, "'", "''")	' l'apostrofo si raddoppia per l'SQL
          End Function

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    	FRMPRINCIPALE                                   *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
