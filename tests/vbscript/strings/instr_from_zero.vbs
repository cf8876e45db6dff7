WScript.Echo InStr(0, "abc", "a")
' error: 5 Invalid procedure call or argument
