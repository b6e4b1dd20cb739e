Option Explicit
Sub A()
If x Then
attribute vb_name = "c"
  attribute vb_name = "c"
ATTRIBUTE VB_x
attribute x
attributevb
z = 1
AttributeColore = 2
  grezza
