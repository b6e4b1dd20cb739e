If y Then
End If
