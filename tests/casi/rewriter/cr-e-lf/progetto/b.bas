Option Explicit
Sub B()
x = 1
  y = 2

End Sub

If z Then
' c
d
'* e
f
