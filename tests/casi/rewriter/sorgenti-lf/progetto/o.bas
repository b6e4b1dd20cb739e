option explicit
Sub A()
End Sub
