WScript.Echo Round(12, -1)
' error: 5 Invalid procedure call or argument
