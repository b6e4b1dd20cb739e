VERSION 5.00
If k Then
Attribute VB_Exposed = False
Sub a()
End Sub
Attribute VB_Exposed = False
x = 1
Private Sub b()
  y = 2
End Sub
