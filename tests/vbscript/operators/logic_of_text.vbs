WScript.Echo "6" And "3"
' expect: 2
WScript.Echo "x" And 1
' error: 13 Type mismatch
