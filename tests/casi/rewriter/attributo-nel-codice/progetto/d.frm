VERSION 5.00
Begin VB.Form d
End
Attribute VB_Name = "d"
Attribute VB_Exposed = False
Sub A()
If x Then
Attribute A.VB_Description = "d"
  y = 1
Option
  End If
  End Sub
