Attribute VB_Name = "S"
Public Sub a()
