x = CDate(Null)
' error: 94 Invalid use of Null
