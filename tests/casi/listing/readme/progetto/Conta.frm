VERSION 5.00
Begin VB.Form Conta
   Caption = "Quantità"
End
Attribute VB_Name = "Conta"
Attribute VB_Exposed = False
Option Explicit
Sub Stampa(n As Integer)
Dim i As Integer
For i = 1 To n
If i = 2 Then
Debug.Print "due"
Else
Debug.Print i
End If
Next i
If n > 9 Then Debug.Print "perché?"
End Sub
