WScript.Echo "[" & Trim("  a b  ") & "][" & LTrim("  a ") & "][" & RTrim(" a  ") & "]"
' expect: [a b][a ][ a]
WScript.Echo Len(Trim(vbTab & "a" & vbTab))
' expect: 3
