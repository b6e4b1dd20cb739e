Form0.Show
               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************
               .Show
               Form2.Show 'x

               If x Then Form2.Show: Form3.Show
                     Call x: Form2.Show
                     CommonDialog1.ShowColor
                     s = ".Show"
                     form4.show
                     'Form5.Show
                     x = 1 ' Form6.Show
                     Rem Form7.Show
                     perché.Show
                     zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
                     zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
                     zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
                     zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
                     Form2.Show
                End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    FORM0                                            *
          '*                                                     *
          '*    FORM2                                            *
          '*    IF X THEN FORM2                                  *
          '*    CALL X: FORM2                                    *
          '*    COMMONDIALOG1                                    *
          '*    S = "                                            *
          '*    X = 1 ' FORM6                                    *
          '*    REM FORM7                                        *
          '*    PERCHÉ                                           *
          '*    ZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZ  *
          '*    ZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZ *
          '*    ZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZ
          '*    ZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZ
          '*    FORM2                                            *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
