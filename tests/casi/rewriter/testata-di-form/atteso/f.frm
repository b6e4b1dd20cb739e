               VERSION 5.00
               Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
               Begin VB.Form f
               BackColor       =   &H00FFFFFF&
               Caption         =   "Quantità: €"
               Icon            =   "x.frx":0000
               LinkTopic       =   "Form1"
               Begin TabDlg.SSTab T
               TabCaption(0)   =   "a"
               Tab(0).Control(0)=   "b"
               TabCaption(1)   =   "If"
               _ExtentX        =   847
               Begin VB.CommandButton b
               Picture         =   $"x.frx":014A
               BeginProperty Font
               Name            =   "MS Sans Serif"
          EndProperty
          End
          End
               Begin {C0E45035-5775-11D0-B388-00A0C9055D8E} env
               _Version = 1
          End
               Begin VB.Menu m
               Caption         =   "&File"
               Shortcut        =   ^N
               Begin VB.Menu n
               Shortcut        =   +^{F1}
               NegotiatePosition=   2  'Middle
          End
          End
          End
Attribute VB_Name = "f"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
               Option Explicit
          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
