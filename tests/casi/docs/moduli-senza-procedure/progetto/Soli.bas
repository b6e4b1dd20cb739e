Attribute VB_Name = "Soli"
Public Const Massimo = 9
Public Declare Function GetTickCount Lib "kernel32" () As Long
