WScript.Echo 1 + 2 * 3
' expect: 7
WScript.Echo 2 * 3 ^ 2
' expect: 18
WScript.Echo 10 - 2 - 3
' expect: 5
WScript.Echo 100 / 10 * 2
' expect: 20
WScript.Echo 10 Mod 4 * 2
' expect: 2
WScript.Echo 10 \ 4 / 2
' expect: 5
WScript.Echo 10 Mod 7 \ 2
' expect: 1
WScript.Echo 5 + 7 Mod 4
' expect: 8
WScript.Echo -3 * -2
' expect: 6
