               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************

               While x
                     y = 1
                     Wend
                     z = 1

                     While v

                           WhileFlag = 1
                           Whend

                          w = 1

                          Do

                                Do While x
                                      u = 1
                                Loop Until y

                               DoEvents
                               Do: x = 1

                               do
                               LoopCount = 3

                        Loop

                  End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
