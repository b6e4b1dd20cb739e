               Option Explicit
          End Sub

          m0 = 1
           End With

                dopo = 1
           End Property
             m3 = 1
           End With

                dopo = 1
           End Function

               m5 = 1
           End With

                dopo = 1
           End Sub


          If a Then
                m6 = 1
          End With

               dopo = 1
          End Property

             If a Then

                   If a Then

                         If a Then
                         End If

                  End If

                 m7 = 1
           End With

                dopo = 1
           End Property

             If a Then

                   If a Then
                   End If

                  m8 = 1
            End With

                dopo = 1
           End Property

             If a Then
                   m9 = 1
             End With

                dopo = 1
           End Function


               If a Then

                     If a Then
                     End If

                    m10 = 1
              End With

                dopo = 1
           End Function


               If a Then
                     m11 = 1
               End With

                dopo = 1
           End Sub


          If a Then

                If a Then
                      m12 = 1
                End With

                dopo = 1
           End Property

             If a Then

                   If a Then

                         If a Then

                               If a Then
                               End If

                        End If

                       m13 = 1
                 End With

                dopo = 1
           End Property

             If a Then

                   If a Then

                         If a Then
                         End If

                        m14 = 1
                  End With

                 dopo = 1
            End Property

             If a Then

                   If a Then
                         m15 = 1
                   End With

                  dopo = 1
             End Function


               If a Then

                     If a Then

                           If a Then
                           End If

                          m16 = 1
                    End With

                   dopo = 1
              End Function


               If a Then

                     If a Then
                           m17 = 1
                     End With

                    dopo = 1
               End Sub


          If a Then

                If a Then

                      If a Then
                            m18 = 1
                      End With

                     dopo = 1
                End Property

             If a Then

                   If a Then

                         If a Then

                               If a Then

                                     If a Then
                                     End If

                              End If

                             m19 = 1
                       End With

                      dopo = 1
                 End Property

             If a Then

                   If a Then

                         If a Then

                               If a Then
                               End If

                              m20 = 1
                        End With

                       dopo = 1
                  End Property

             If a Then

                   If a Then

                         If a Then
                               m21 = 1
                         End With

                        dopo = 1
                   End Function


               If a Then

                     If a Then

                           If a Then

                                 If a Then
                                 End If

                                m22 = 1
                          End With

                         dopo = 1
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
