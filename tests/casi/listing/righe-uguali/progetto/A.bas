option x
Sub a()
End Sub
