               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************

               For Each c In d
                     x = 1
               Next c   'two blanks and a comment


                For k = 1 To 2 'apre
                Next'chiude

          NextItem = 2

           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
