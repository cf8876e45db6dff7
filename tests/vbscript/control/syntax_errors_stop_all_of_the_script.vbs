WScript.Echo "never"
x = 
' error: 1002 Syntax error
