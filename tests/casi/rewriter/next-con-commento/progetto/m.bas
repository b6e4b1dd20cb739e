Option Explicit
Sub A()
For Each c In d
x = 1
Next c   'two blanks and a comment
For k = 1 To 2 'apre
Next'chiude
NextItem = 2
End Sub
