WScript.Echo Mid("abc", 0, 1)
' error: 5 Invalid procedure call or argument
