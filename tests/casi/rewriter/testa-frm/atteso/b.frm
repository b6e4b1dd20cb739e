               VERSION 5.00
               Begin VB.Form B
          End
Attribute VB_Name = "B"
Attribute VB_Exposed = True
'-- Intestazione --
               Dim x
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
