Option Explicit


Sub A()

If x Then

   
y = 1

End If

End If


'*
'* x
' *
'x
''*
End Sub

