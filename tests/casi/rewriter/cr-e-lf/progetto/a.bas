Option ExplicitSub A()x = 1
End Sub