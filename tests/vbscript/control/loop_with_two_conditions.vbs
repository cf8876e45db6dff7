Do While x < 3
    x = x + 1
Loop Until x = 2
' error: 1025 Expected end of statement
