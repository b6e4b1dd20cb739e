               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************
               100 x = 1
               200 If y Then
               210 z = 1
               220 End If
               230 Print "a" & _
               240 "b"

               If w Then
                     Errore:
                     Altro: If v Then
                     300 Next
               End If

                10
           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
