WScript.Echo "first"
' expect: first
WScript.Echo CInt("x")
' error: 13 Type mismatch
