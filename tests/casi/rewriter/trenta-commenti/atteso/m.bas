               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************
               ' riga 1 di commento, che comincia come If o come For
               ' riga 2 di commento, che comincia come If o come For
               ' riga 3 di commento, che comincia come If o come For
               ' riga 4 di commento, che comincia come If o come For
               ' riga 5 di commento, che comincia come If o come For
               ' riga 6 di commento, che comincia come If o come For
               ' riga 7 di commento, che comincia come If o come For
               ' riga 8 di commento, che comincia come If o come For
               ' riga 9 di commento, che comincia come If o come For
               ' riga 10 di commento, che comincia come If o come For
               ' riga 11 di commento, che comincia come If o come For
               ' riga 12 di commento, che comincia come If o come For
               ' riga 13 di commento, che comincia come If o come For
               ' riga 14 di commento, che comincia come If o come For
               ' riga 15 di commento, che comincia come If o come For
               ' riga 16 di commento, che comincia come If o come For
               ' riga 17 di commento, che comincia come If o come For
               ' riga 18 di commento, che comincia come If o come For
               ' riga 19 di commento, che comincia come If o come For
               ' riga 20 di commento, che comincia come If o come For
               ' riga 21 di commento, che comincia come If o come For
               ' riga 22 di commento, che comincia come If o come For
               ' riga 23 di commento, che comincia come If o come For
               ' riga 24 di commento, che comincia come If o come For
               ' riga 25 di commento, che comincia come If o come For
               ' riga 26 di commento, che comincia come If o come For
               ' riga 27 di commento, che comincia come If o come For
               ' riga 28 di commento, che comincia come If o come For
               ' riga 29 di commento, che comincia come If o come For
               ' riga 30 di commento, che comincia come If o come For
               x = 1

               If y Then
                     '    altra 1
                     '    altra 2
                     '    altra 3
                     '    altra 4
                     '    altra 5
                     '    altra 6
                     '    altra 7
                     '    altra 8
                     '    altra 9
                     '    altra 10
                     '    altra 11
                     '    altra 12
                     '    altra 13
                     '    altra 14
                     '    altra 15
                     '    altra 16
                     '    altra 17
                     '    altra 18
                     '    altra 19
                     '    altra 20
                     '    altra 21
                     '    altra 22
                     '    altra 23
                     '    altra 24
                     '    altra 25
                     '    altra 26
                     '    altra 27
                     '    altra 28
                     '    altra 29
                     '    altra 30
                     z = 1
               End If

           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
