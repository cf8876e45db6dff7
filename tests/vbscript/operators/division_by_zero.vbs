x = 0
WScript.Echo 1 / x
' error: 11 Division by zero
