x = 1e
' error: 1031 Invalid number
