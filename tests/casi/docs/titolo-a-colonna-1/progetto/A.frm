Begin VB.Menu Uno
Caption         =   "Prima colonna"
Begin VB.Menu Due
Caption         =   Caption         =   "due volte"
x = 1: Begin VB.Menu Tre
Caption= "stretto"
Attribute VB_Name = "A"
