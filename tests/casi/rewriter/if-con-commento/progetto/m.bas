Option Explicit
Sub A()
If x Then   ' comment
y = 1
End If
If x Then 'due
z = 1
End If   ' fine
End Sub
