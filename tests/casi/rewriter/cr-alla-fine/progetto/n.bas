Attribute VB_Name = "n"
  una riga grezza molto piu lunga di quella che le sta davanti