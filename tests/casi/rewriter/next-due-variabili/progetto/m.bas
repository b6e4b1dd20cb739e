Option Explicit
Sub A()
For i = 1 To 2
For j = 1 To 2
x = 1
Next j, i
y = 1
End Sub
