Attribute VB_Name = "a"

  ' sopra
'* sopra
Option Explicit

Dim x
