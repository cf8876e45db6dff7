x = 1 ? 2
' error: 1032 Invalid character
