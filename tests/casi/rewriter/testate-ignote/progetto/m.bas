Option Explicit
Static Function Fmt$(ByVal in$)
x = 1
End Function
Private Static Sub x()
y = 1
End Sub
Friend Function f()
If a Then
z = 1
End Function
Public Static Sub q()
End Sub
Private Property Get P()
w = 1
End Property
Static Property Let P(v)
End Property
Friend Sub s()
End Sub
