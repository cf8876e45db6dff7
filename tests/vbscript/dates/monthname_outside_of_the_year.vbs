WScript.Echo MonthName(13)
' error: 5 Invalid procedure call or argument
