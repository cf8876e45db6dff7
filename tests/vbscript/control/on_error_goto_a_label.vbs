On Error GoTo failed
' error: 1002 Syntax error
