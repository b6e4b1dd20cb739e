If a
End If
