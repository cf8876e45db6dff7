WScript.Echo "abc
' error: 1033 Unterminated string constant
