If a Thenx
Else
End If

y