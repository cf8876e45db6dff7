x = 5
WScript.Echo UBound(x)
' error: 13 Type mismatch
