x = 0
WScript.Echo 1 Mod x
' error: 11 Division by zero
