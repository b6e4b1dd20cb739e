VERSION 5.00
Begin VB.Form a
  Left = 1

End
Attribute VB_Name = "a"

  grezza
Attribute VB_Exposed = False
  Option Explicit
Dim x
