VERSION 5.00
Begin VB.Form f 
   Caption         =   "f"
   ForeColor       =   1
   Begin VB.Frame g 
      Begin VB.Frame h 
         SubCaption      =   "si"
         IfVisible       =   0
         NextField       =   "n"
         EndColor        =   3
         PropertyPage    =   "p"
         FunctionKey     =   2
         Enabled         =   0   'False
         DoubleClick     =   -1  'True
         Do              =   1
         While           =   2
         ElseValue       =   3
         LoopCount       =   4
         BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} 
            Name            =   "Arial"
         EndProperty
         Public TypeLib  =   1
      End
   End
End
Attribute VB_Name = "f"
Attribute VB_Exposed = False
Dim x
