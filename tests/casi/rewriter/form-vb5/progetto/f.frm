VERSION 5.00
Begin VB.Form f
   AutoRedraw = False
   AutoRedraw      =   -1  'True
   ClipControls = 0   'False
End
Attribute VB_Name = "f"
Attribute VB_Exposed = False
Sub A()
End Sub
