Option Explicit
Sub A()
If x Then
y = 1
Else: foo = 42
z = 1
ElseIf y Then: bar = 1
elsewhere = 1
Else 'commento
w = 1
End If
End Sub
