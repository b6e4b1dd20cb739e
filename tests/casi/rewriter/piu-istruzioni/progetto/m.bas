Option Explicit
Sub A()
d = Day(Date) : If a Then b : End If
x = 1: For i = 1 To 3
y = 2: Next
If a Then b = 1 : End If
z = 3
End If: w = 4
Next i: If c Then
v = 5
End Sub: Sub B()
u = 6
