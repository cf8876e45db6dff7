WScript.Echo 7 Mod 3
' expect: 1
WScript.Echo -7 Mod 3
' expect: -1
WScript.Echo 7 Mod -3
' expect: 1
WScript.Echo 7.5 Mod 2
' expect: 0
