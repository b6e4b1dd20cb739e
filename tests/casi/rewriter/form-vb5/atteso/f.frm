               VERSION 5.00
               Begin VB.Form f
               AutoRedraw = False
               AutoRedraw      =   -1  'True
               ClipControls = 0   'False
          End
Attribute VB_Name = "f"
Attribute VB_Exposed = False
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
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
