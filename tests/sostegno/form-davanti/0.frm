VERSION 5.00
Begin VB.Form z
End
Attribute VB_Name = "z"
Attribute VB_Exposed = False
Option Explicit
