a = "word"
WScript.Echo a + 1
' error: 13 Type mismatch
