RecordSource    =   "Sua"
Attribute VB_Name = "G"
