If a Thenb

End If
