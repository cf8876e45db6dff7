x = #2/30/2003#
' error: 1002 Syntax error
