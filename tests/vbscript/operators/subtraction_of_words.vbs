WScript.Echo "a" - "b"
' error: 13 Type mismatch
