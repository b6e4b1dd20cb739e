               Option Explicit
               Public WithEvents o As X
Attribute o.VB_VarHelpID = -1
  Sub A()

  x = 1
  End Sub
               option1 = 2
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub B()
          '*                                                                                                                *
          '******************************************************************************************************************
          End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
