               VERSION 5.00
               Begin VB.Form c
          End
Attribute VB_Name = "c"
Dim grezza
               Option Base 1
               Dim x
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
