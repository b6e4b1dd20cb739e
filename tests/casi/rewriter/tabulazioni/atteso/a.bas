               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub A()
          '*                                                                                                                *
          '******************************************************************************************************************
               	If x Then
               	 y = 1
               	End If
               	' commento
               	'* stelle
               	

               If z Then	
               End If	

                x	=	1
           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
