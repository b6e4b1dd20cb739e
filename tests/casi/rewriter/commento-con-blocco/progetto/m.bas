Option Explicit
Sub A()
'For i = 1 To 1: Beep: Next
' xxx: function foo()
'Sub B()
'End Sub
    'If x Then
x = 1
Rem If x Then
Rem Next
End Sub
