WScript.Echo CByte(-1)
' error: 6 Overflow
