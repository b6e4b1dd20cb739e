Attribute VB_Name = "b"
  resto