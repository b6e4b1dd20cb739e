VERSION 5.00
Begin VB.Form d
End
Sub A()
End Sub
