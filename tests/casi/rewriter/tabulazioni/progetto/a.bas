Option Explicit
Sub A()
	If x Then
 	 y = 1
	End If
	' commento
	'* stelle
	
 If z Then	
'	c
End If	
x	=	1
End Sub
