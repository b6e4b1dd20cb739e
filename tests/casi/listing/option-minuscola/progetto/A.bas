Attribute VB_Name = "A"
' davanti
option explicit
x = 1
