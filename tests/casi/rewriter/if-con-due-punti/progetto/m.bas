Option Explicit
Sub A()
If x Then: stmt
y = 1
If x Then stmt
y = 2
End If
End Sub
Sub B()
If x Then: stmt: End If
y = 3
If x Then stmt Else altra
y = 4
End Sub
