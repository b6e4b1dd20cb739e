Attribute VB_Name = "c"
  option compare text
  Dim x
