Attribute VB_Name = "Soli"
Const Massimo = 9
Declare Function GetTickCount Lib "kernel32" () As Long
