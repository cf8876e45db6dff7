a = "3"
WScript.Echo -a, TypeName(-a)
' expect: -3 Double
WScript.Echo - - 4
' expect: 4
WScript.Echo 3 - -4
' expect: 7
WScript.Echo +5
' expect: 5
