WScript.Echo Sqr(-1)
' error: 5 Invalid procedure call or argument
