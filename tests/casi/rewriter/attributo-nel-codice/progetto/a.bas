Option Explicit
Public WithEvents o As X
Attribute o.VB_VarHelpID = -1
  Sub A()

  x = 1
  End Sub
option1 = 2
  Sub B()
  End Sub
