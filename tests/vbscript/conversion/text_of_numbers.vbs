WScript.Echo 1e14, 1e15
' expect: 100000000000000 1E+15
WScript.Echo 123456789012345678
' expect: 1.23456789012346E+17
WScript.Echo 1.50, -0.25, .5
' expect: 1.5 -0.25 0.5
WScript.Echo 100.0
' expect: 100
