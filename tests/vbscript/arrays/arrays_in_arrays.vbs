a = Array(Array(1, 2), Array(3, 4))
WScript.Echo a(1)(0), UBound(a(0))
' expect: 3 1
a(0)(1) = "changed"
WScript.Echo a(0)(1)
' expect: changed
