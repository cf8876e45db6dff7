a = Array(1, "two", 3.5)
WScript.Echo UBound(a), a(0), a(1), a(2)
' expect: 2 1 two 3.5
WScript.Echo UBound(Array())
' expect: -1
