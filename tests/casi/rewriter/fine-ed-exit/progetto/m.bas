Option Explicit
Sub A()
If x Then
Exit Sub
Exit For
Exit Do
Exit Function
Exit Property
End
End 'tutto
EndDoc
endIndex = 3
exit do
Exit  Sub
End If
End Sub 'fine
Property Get P()
PropertyBag.Read
Exit Property
subtotal = 1
Functional x
