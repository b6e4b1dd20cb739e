Attribute VB_Name = "Quantità"
               Option Explicit
          '******************************************************************************************************************
          '*                                                                                                                *
          Sub Perché(ByVal Quantità As Currency)
          '*                                                                                                                *
          '******************************************************************************************************************
               ' commento: è così, “virgolette” e ‘apici’ – € 1,00…
               s = "È vero: ½ ° § ñ ÿ"
               Città.Show

               If Perché Then
                     'à
               End If

           End Sub

          '*******************************************************
          '*              Procedura by Dario Fenzoni             *
          '*              E-mail vorn@morvella.example           *
          '* Procedura per il riordino dei programmi Visual Basic*
          '*  La procedura richiama i seguenti Form o procedure:   *
          '*    CITTÀ                                            *
          '*******************************************************
          '               Rilettura del 21/11/2026...
          '
