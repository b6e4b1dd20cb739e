Option Explicit
Sub A()
For i = 1 To 3
Select Case i
Case 1
x = 1
Case Else
If a Then
y = 1
ElseIf b Then
y = 2
Else
y = 3
End If
End Select
Next
End Sub
