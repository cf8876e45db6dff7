Const kSum = 1 + 2
' error: 1025 Expected end of statement
