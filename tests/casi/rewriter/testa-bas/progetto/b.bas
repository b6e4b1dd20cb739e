Attribute VB_Name = "b"
  Sub A()

If x Then
    End Sub
'* resta
