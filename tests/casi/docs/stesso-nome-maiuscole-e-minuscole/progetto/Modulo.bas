Attribute VB_Name = "Modulo"
Public Sub a()
