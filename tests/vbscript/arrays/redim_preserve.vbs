Dim a()
ReDim a(1)
a(0) = "x" : a(1) = "y"
ReDim Preserve a(2)
WScript.Echo a(0), a(1), TypeName(a(2))
' expect: x y Empty
ReDim Preserve a(0)
WScript.Echo UBound(a), a(0)
' expect: 0 x
