Public Sub Prima()
End Sub
