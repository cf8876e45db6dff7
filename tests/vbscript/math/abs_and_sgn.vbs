WScript.Echo Abs(-5), Abs(5.5), Abs("-3"), Sgn(-2.5), Sgn(0), Sgn(7)
' expect: 5 5.5 3 -1 0 1
WScript.Echo TypeName(Abs(-5)), TypeName(Abs(Null)), TypeName(Sgn(5))
' expect: Integer Null Integer
