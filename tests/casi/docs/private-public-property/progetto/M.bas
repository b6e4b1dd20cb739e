Attribute VB_Name = "M"
Option Explicit
Public Type Punto
End Type
Private Type Nascosto
Sub Nuda()
Function NudaAnche()
Private Sub Uno()
End Sub
   public function Due(a, _
      b) As Long 'somma <b>
Friend Sub Tre()
Static Sub Quattro()
Public Static Sub Cinque()
Public Property Get Sei()
Private Property Let Sei(v)
Public Subtotale As Long
Private Functional As Long
	Private Sub Sette()
'Private Sub Otto()
Private  Sub Nove()
PUBLIC SUB DIECI()   
