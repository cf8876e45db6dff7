Dim type
' error: 1010 Expected identifier
