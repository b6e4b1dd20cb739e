option
If a Then
b
