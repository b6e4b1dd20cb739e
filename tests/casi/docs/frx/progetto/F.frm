VERSION 5.00
Begin VB.Form F
   Icon            =   "F.frx":0000
   Begin VB.Menu m 
      Caption         =   $"F.frx":030A
   End
End
Attribute VB_Name = "F"
Private Sub a()
