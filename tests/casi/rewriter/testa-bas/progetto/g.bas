  Attribute VB_Name = "g"
  Dim x
Option Explicit
Dim y
