x = 1 y = 2
' error: 1025 Expected end of statement
