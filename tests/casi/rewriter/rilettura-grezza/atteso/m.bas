Attribute VB_Name = "m"
  Sub A()
F.Show
End Sub
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    F                                                *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    F                                                *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
