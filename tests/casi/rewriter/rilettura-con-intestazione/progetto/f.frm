               VERSION 5.00
               Begin VB.Form f
               Caption = "f"
               BeginProperty Font
               Size = 8
          EndProperty
          End
Attribute VB_Name = "f"
Attribute VB_Exposed = False
'*  Intestazione
'   del programmatore

               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub Form_Load()
          '*                                                                                                                *
          '******************************************************************************************************************
               Form2.Show vbModal

               If a Then

                     For i = 1 To 2
                           x = 1
                     Next

              End If

           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    FORM2                                            *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
