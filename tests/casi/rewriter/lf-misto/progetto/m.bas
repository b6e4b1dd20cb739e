Option Explicit
Sub A()
x = 1y = 2


End Sub
