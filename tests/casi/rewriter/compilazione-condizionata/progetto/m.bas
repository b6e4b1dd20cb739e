Option Explicit
#If Win32 Then
Private Enum Colori
Rosso = 1
End Enum
#Else
Public Enum Colori
Verde
End Enum
#End If
#If Win32 Then
Sub A(ByVal x As Long)
#Else
Sub A(ByVal x As Integer)
#End If
y = 1
#if a then
z = 1
#elseif b then
#end if
End Sub
#Const c = 1
#ElseIf
