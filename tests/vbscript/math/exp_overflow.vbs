WScript.Echo Exp(1000)
' error: 6 Overflow
