Option Explicit
Sub A()
If a Then b
If c Then d Else e
If f Then g
x = 1
End If
y = 1
End Sub
Sub B()
If
Ifx Then
IF a THEN b
z = 1
end  if
End If
w = 1
End Sub
