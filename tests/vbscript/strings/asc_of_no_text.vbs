WScript.Echo Asc("")
' error: 5 Invalid procedure call or argument
