x = 1
Const kCopy = x
' error: 1045 Expected literal constant
