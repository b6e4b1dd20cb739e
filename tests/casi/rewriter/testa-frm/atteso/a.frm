               VERSION 5.00
               Begin VB.Form a
               Left = 1
          End
Attribute VB_Name = "a"

  grezza
Attribute VB_Exposed = False
'-- Intestazione --
               Option Explicit
               Dim x
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
