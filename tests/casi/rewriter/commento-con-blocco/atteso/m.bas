               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************
               'For i = 1 To 1: Beep: Next
               ' xxx: function foo()
               'Sub B()
               'End Sub
               'If x Then
               x = 1
               Rem If x Then
               Rem Next
          End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
