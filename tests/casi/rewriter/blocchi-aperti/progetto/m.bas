Option Explicit
Sub A()
If x Then
For i = 1 To 2
With y
a = 1
End Sub
b = 1
Function F()
Do
Select Case x
c = 1
End Function
d = 1
Public Property Get P()
While z
#If q Then
e = 1
End Property
f = 1
