Option Explicit
Sub Prova()
x = 1
If x Then
y = 2
If y Then
z = 3
Else
z = 4
End If
w = 1
End If
v = 1
For i = 1 To 3
With q
.a = 1
End With
Next
Select Case x
Case 1
a = 1
Case Else
a = 2
End Select
Exit Sub
End Sub
b = 1
Function F()
If a Then b
c = 1
End Function
d = 1
Property Get P()
End Property
e = 1
