VERSION 5.00
Attribute VB_Exposed = False
If a Then
x
End Ify