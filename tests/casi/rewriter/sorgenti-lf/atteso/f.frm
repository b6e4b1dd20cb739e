               VERSION 5.00
Begin VB.Form F
   Caption = "f"
End
Attribute VB_Name = "F"
Attribute VB_Exposed = False
Private Sub Form_Load()
F.Show
End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    VERSION 5.00
BEGIN VB.FORM F
   CAPTION = "F"
END
ATTRIBUTE VB_NAME = "F"
ATTRIBUTE VB_EXPOSED = FALSE
PRIVATE SUB FORM_LOAD()
F
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
