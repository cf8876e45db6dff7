x = Len("abc"
' error: 1006 Expected ')'
