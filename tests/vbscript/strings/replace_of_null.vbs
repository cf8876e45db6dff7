x = Replace(Null, "a", "b")
' error: 94 Invalid use of Null
