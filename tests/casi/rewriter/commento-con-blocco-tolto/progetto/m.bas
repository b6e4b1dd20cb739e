Option Explicit
Sub A()
'For i = 1 To 1: Beep: Next
' xxx: function foo()
    'If x Then
x = 1 'Next
Rem If x Then
End Sub
