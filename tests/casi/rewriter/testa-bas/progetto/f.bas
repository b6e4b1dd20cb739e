' Option Explicit
  Dim x
	Option Explicit
  Dim y
OPTIONE
  Dim z
