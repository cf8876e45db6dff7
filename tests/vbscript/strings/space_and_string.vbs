WScript.Echo "[" & Space(3) & "]"
' expect: [   ]
WScript.Echo String(3, "x"), String(3, "xyz"), String(2, 65), "[" & String(0, "x") & "]"
' expect: xxx xxx AA []
