For i = 1 To 2
Next i
' error: 1025 Expected end of statement
