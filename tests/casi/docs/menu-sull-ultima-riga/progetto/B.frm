VERSION 5.00
   Begin VB.Menu MnuUltimo