Option Explicit
Sub A()
text = "While"
s = "End Sub"
t = "' non e un commento"
u = "a "" If b Then"
Print "End If" _
& "Next"
"End Sub"
End Sub
