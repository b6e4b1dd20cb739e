Attribute VB_Name = "Quantità"
Option Explicit
Sub Perché(ByVal Quantità As Currency)
' commento: è così, “virgolette” e ‘apici’ – € 1,00…
s = "È vero: ½ ° § ñ ÿ"
Città.Show
If Perché Then
'à
End If
End Sub
