Attribute VB_Name = "A"
Public Sub a()
End Sub
