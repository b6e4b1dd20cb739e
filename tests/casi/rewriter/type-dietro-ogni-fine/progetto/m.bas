Option Explicit
Private Type A
x As Long
End Type
Sub S()
End Sub
Private Type B
x As Long
End Type
Function F()
End Function
Public Type C
If x
End Type
Property Get P()
End Property
PRIVATE TYPE D
x As Long
End Type
Private TypeCode As Long
Type E
x As Long
End Type
Public Enum G
Sub1
Function2
End Enum
