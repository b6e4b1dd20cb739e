Dim x
Optional y
  Dim z
