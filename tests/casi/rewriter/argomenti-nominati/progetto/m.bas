Option Explicit
Sub A()
If Range(Cell1:="a1") Then
Open File:="x", Mode:=1
End If
f a:=1, _
b:=2
End Sub
