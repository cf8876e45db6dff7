WScript.Echo 2 ^ 10, TypeName(2 ^ 10)
' expect: 1024 Double
WScript.Echo 2 ^ -1
' expect: 0.5
WScript.Echo (-2) ^ 2
' expect: 4
WScript.Echo 2 ^ 3 ^ 2
' expect: 64
WScript.Echo 9 ^ 0.5
' expect: 3
