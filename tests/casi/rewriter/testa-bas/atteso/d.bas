Attribute VB_Name = "d"
  Sub A()
               Option1.Value = True

               If x Then
                     y = 1
               End If

           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
