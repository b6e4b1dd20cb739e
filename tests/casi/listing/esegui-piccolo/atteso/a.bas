Attribute VB_Name = "A"
               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Public Sub Apri()
          '*                                                                                                                *
          '******************************************************************************************************************
               frmX.Show
          End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    FRMX                                             *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
