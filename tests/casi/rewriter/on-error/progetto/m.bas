Option Explicit
Sub A()
For i = 1 To 3
On Error Resume Next
x = 1
On Error GoTo 0
On Error GoTo Errore
Resume Next
Next
Errore:
Resume
End Sub
