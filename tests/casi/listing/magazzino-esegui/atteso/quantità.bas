Attribute VB_Name = "modQuantita"
               Option Explicit
               '---------------------------------------------------------------
               ' Calcoli sulle quantità: giacenze, arrotondamenti, valore
               '---------------------------------------------------------------
               #Const CONTROLLI = True
               Private Const DECIMALI As Integer = 2
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function FormattaQuantità(ByVal lQta As Long) As String
          '*                                                                                                                *
          '******************************************************************************************************************

               If lQta = 0 Then FormattaQuantità = "-" Else FormattaQuantità = Format$(lQta, "#,##0")
                End Function

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function NomeTipo(ByVal eTipo As eTipoMovimento) As String
          '*                                                                                                                *
          '******************************************************************************************************************

               Select Case eTipo

               Case tmCarico: NomeTipo = "Carico"

               Case tmScarico: NomeTipo = "Scarico"

                     #If VERSIONE_COMPLETA Then

                     Case tmReso
                           NomeTipo = "Reso"

                     Case tmRettifica
                           NomeTipo = "Rettifica"
                     #End If


              Case Else
                    NomeTipo = "Tipo " & CStr(eTipo) & " sconosciuto"
              End Select

           End Function

               ' arrotonda "come a scuola": Round usa la regola del banchiere
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function Arrotonda(ByVal dValore As Double, Optional ByVal nDec As Integer = DECIMALI) As Currency
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim dFattore As Double
               dFattore = 10 ^ nDec
               Arrotonda = Sgn(dValore) * Int(Abs(dValore) * dFattore + 0.5) / dFattore
          End Function

          '******************************************************************************************************************
          '*                                                                                                                *
          Public Sub AggiornaGiacenza(ByVal sCodice As String, ByVal lDifferenza As Long)
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim lRighe As Long, sSql As String
               sSql = "UPDATE Articoli SET Giacenza = Giacenza + (" & lDifferenza & ")" & _
               " WHERE Codice = '" & Apici(sCodice) & "'"
               gcnArchivio.Execute sSql, lRighe

               #If CONTROLLI Then

                     If lRighe <> 1 Then
                           Registra "ATTENZIONE: aggiornate " & lRighe & " righe per " & sCodice
                     End If

              #Else
                    ' niente controlli
              #End If

           End Sub

          ' Giacenza di un articolo a una certa data, rifatta dai movimenti.
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function GiacenzaAl(ByVal sCodice As String, ByVal dData As Date) As Long
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim rs As ADODB.Recordset, lSomma As Long
               Set rs = New ADODB.Recordset
               rs.Open "SELECT Quantità, Data FROM Movimenti WHERE Codice = '" & Apici(sCodice) & "' ORDER BY Data", _
               gcnArchivio, adOpenForwardOnly, adLockReadOnly

               Do Until rs.EOF

                     If rs!Data > dData Then Exit Do

                           If rs!Data >= #1/1/2000# Then
                                 lSomma = lSomma + rs("Quantità")
                           End If

                          rs.MoveNext
                    Loop

                   rs.Close
                   GiacenzaAl = lSomma
              End Function

               ' Valore di tutto il magazzino al prezzo medio.
               ' bNegativi: se True le giacenze sotto zero si contano (e si segnalano).
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function ValoreMagazzino(ByVal bNegativi As Boolean) As Currency
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim rs As ADODB.Recordset
               Dim curTotale As Currency
               Dim nNegativi As Integer
               Set rs = gcnArchivio.Execute("SELECT Codice, Giacenza, PrezzoMedio FROM Articoli")

               Do While Not rs.EOF

                     If rs!Giacenza >= 0 Then
                           curTotale = curTotale + Arrotonda(rs!Giacenza * rs!PrezzoMedio)
                     Else

                           If bNegativi Then
                                 nNegativi = nNegativi + 1
                                 curTotale = curTotale + Arrotonda(rs!Giacenza * rs!PrezzoMedio)
                                 ' da finire: scrivere nel registro anche il codice
                           End If

                          rs.MoveNext
                    Loop

                   rs.Close

                   If nNegativi > 0 Then Registra nNegativi & " articoli con giacenza negativa"
                         ValoreMagazzino = curTotale
                    End Function

               ' Prezzo medio ponderato dopo un carico
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function PrezzoMedio(ByVal lQtaPrima As Long, ByVal curPrima As Currency, _
          '*                                                                                                                *
          '******************************************************************************************************************
               ByVal lQtaNuova As Long, ByVal curNuovo As Currency) As Currency

               If lQtaPrima <= 0 Then
                     PrezzoMedio = curNuovo
               ElseIf lQtaNuova <= 0 Then
                     PrezzoMedio = curPrima
               Else
                     PrezzoMedio = Arrotonda((lQtaPrima * curPrima + lQtaNuova * curNuovo) / (lQtaPrima + lQtaNuova), 4)
               End If

           End Function

               ' Quanti pezzi ordinare, per confezioni intere
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Function DaOrdinare(ByVal lGiacenza As Long, ByVal lScorta As Long, _
          '*                                                                                                                *
          '******************************************************************************************************************
               Optional ByVal lConfezione As Long = 1) As Long
               Dim lPezzi As Long

               If lConfezione < 1 Then lConfezione = 1

                     For lPezzi = 0 To lScorta * 2 Step lConfezione

                           If lGiacenza + lPezzi >= lScorta Then
                                 DaOrdinare = lPezzi
                                 Exit Function
                           End If

                    Next lPezzi

              End Function

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
