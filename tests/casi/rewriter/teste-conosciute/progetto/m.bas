Option Explicit
sub a()
PUBLIC SUB B()
Private Sub C()
function d()
Public Function E()
private function f()
Property Get G()
Public Property Let H(v)
friend property set i(v)
Private  Sub due_blanchi()
Declare Sub z Lib "z"
Private Declare Function y Lib "y" () As Long
Event Fatto()
Public Event Sub1()
