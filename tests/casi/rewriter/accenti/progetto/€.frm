VERSION 5.00
Begin VB.Form €
   Caption = "Più qualità ™"
End
Attribute VB_Name = "€"
Attribute VB_Exposed = False
Option Explicit
