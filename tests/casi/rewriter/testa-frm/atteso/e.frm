               Option Explicit
Attribute VB_Name = "e"
Attribute VB_Exposed = False 'con un commento
'-- Intestazione --
               Dim x
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
