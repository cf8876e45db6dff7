WScript.Echo String(-1, "x")
' error: 5 Invalid procedure call or argument
