Option Explicit
Attribute VB_Name = "e"
Attribute VB_Exposed = False 'con un commento
Dim x
