RecordSource = "resta da prima"
Option Explicit
Public Subtotale As Long
frmDelleImpostazioniGeneraliDelMagazzinoCentr.Show
frmDelleImpostazioniGeneraliDelMagazzinoCentra.Show
