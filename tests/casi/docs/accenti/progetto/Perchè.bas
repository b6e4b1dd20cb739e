Attribute VB_Name = "Perche"
Private Sub È_così()
   frmCittà.Show
   x = "€" 'più.Show
