WScript.Echo DateAdd("x", 1, #1/1/2003#)
' error: 5 Invalid procedure call or argument
