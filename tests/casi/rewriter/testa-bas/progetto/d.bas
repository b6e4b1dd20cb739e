Attribute VB_Name = "d"
  Sub A()
Option1.Value = True
If x Then
y = 1
End If
End Sub
