x = 1e308
WScript.Echo x * 10
' error: 6 Overflow
