Option Explicit
End If
x = 1
End If
Else
y = 1
Case 1
z = 1
Sub A()
Next
Loop
End Select
#End If
End With
End With
x = 1
Else
End Sub
End If
x = 1
Sub B()
End Sub
Else
x = 1
Sub C()
End Sub
Case Else
x = 1
End Sub
End Sub
End Function
End Property
End Property
x = 1
