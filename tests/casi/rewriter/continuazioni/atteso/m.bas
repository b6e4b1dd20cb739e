               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************

               If a1 = 1 And _
                     a2 = 2 And _
                     a3 = 3 And _
                     a4 = 4 And _
                     a5 = 5 And _
                     a6 = 6 And _
                     a7 = 7 And _
                     a8 = 8 And _
                     a9 = 9 And _
                     a10 = 10 And _
                     a11 = 11 And _
                     a12 = 12 And _
                     a13 = 13 And _
                     a14 = 14 And _
                     a15 = 15 And _
                     a16 = 16 And _
                     a17 = 17 And _
                     a18 = 18 And _
                     a19 = 19 And _
                     a20 = 20 And _
                     a21 = 21 And _
                     a22 = 22 And _
                     a23 = 23 And _
                     a24 = 24 Then
                     x = 1
               End If


                Select Case z

                Case a And _
                      b, _

                case c
                      y = 1
                End Select

                v = f(1, _

                If g Then _

                case h _
                Next _

          End If)

                w = 2
                s = "abc" _
                & "If x"
           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
