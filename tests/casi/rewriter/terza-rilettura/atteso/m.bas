Attribute VB_Name = "m"
               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Function F()
          '*                                                                                                                *
          '******************************************************************************************************************

               Select Case a

               Case 1
                     ' commento

                     With b
                           .c = 1
                     End With

              End Select

           End Function

               Dim tardi
               '               Rilettura del 21/11/2026...
               '
               '               Rilettura del 21/11/2026...
               '
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
