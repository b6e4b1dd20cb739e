Form0.Show
Option Explicit
Sub A()
.Show
Form2.Show 'x
  If x Then Form2.Show: Form3.Show
Call x: Form2.Show
CommonDialog1.ShowColor
s = ".Show"
form4.show
'Form5.Show
x = 1 ' Form6.Show
Rem Form7.Show
perché.Show
zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz.Show
Form2.Show
End Sub
