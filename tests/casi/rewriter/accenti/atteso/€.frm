               VERSION 5.00
               Begin VB.Form €
               Caption = "Più qualità ™"
          End
Attribute VB_Name = "€"
Attribute VB_Exposed = False
               Option Explicit
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
