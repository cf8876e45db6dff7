a = Array(1)
WScript.Echo a & "x"
' error: 13 Type mismatch
