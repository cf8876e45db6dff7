WScript.Echo CInt("")
' error: 13 Type mismatch
