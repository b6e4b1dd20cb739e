               VERSION 5.00
               Begin VB.Form frmInformazioni
               BorderStyle     =   3  'Fixed Dialog
               Caption         =   "Informazioni su Magazzino"
               ClientHeight    =   1935
               ClientLeft      =   45
               ClientTop       =   330
               ClientWidth     =   4695
               ControlBox      =   0   'False
               LinkTopic       =   "Form1"
               MaxButton       =   0   'False
               MinButton       =   0   'False
               ScaleHeight     =   1935
               ScaleWidth      =   4695
               ShowInTaskbar   =   0   'False
               StartUpPosition =   1  'CenterOwner
               Begin VB.CommandButton cmdOk
               Cancel          =   -1  'True
               Caption         =   "OK"
               Default         =   -1  'True
               Height          =   375
               Left            =   3360
               TabIndex        =   0
               Top             =   1440
               Width           =   1215
          End
               Begin VB.Label lblTesto
               Height          =   1215
               Left            =   120
               TabIndex        =   1
               Top             =   120
               Width           =   4455
          End
          End
Attribute VB_Name = "frmInformazioni"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub cmdOk_Click()
          '*                                                                                                                *
          '******************************************************************************************************************
               Unload Me
          End Sub

          '******************************************************************************************************************
          '*                                                                                                                *
          Private Sub Form_Load()
          '*                                                                                                                *
          '******************************************************************************************************************
               Dim s As String
               s = NOME_PROGRAMMA & " " & App.Major & "." & App.Minor & "." & App.Revision

               #If VERSIONE_COMPLETA Then
                     s = s & vbCrLf & "Versione completa"
               #Else
                     s = s & vbCrLf & "Versione ridotta: niente resi né rettifiche"
               #End If


                If gcnArchivio Is Nothing Then
                      s = s & vbCrLf & "Nessun archivio aperto"
                Else
                      s = s & vbCrLf & "Archivio: " & gsArchivio
                      s = s & vbCrLf & "Articoli: " & ContaRighe("Articoli") _
                      & "   Movimenti: " & ContaRighe("Movimenti")
                End If

                lblTesto.Caption = s
           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
