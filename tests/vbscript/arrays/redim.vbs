Dim a()
ReDim a(1)
a(0) = "x"
ReDim a(3)
WScript.Echo UBound(a), TypeName(a(0))
' expect: 3 Empty
n = 4
ReDim a(n * 2, 1)
WScript.Echo UBound(a), UBound(a, 2)
' expect: 8 1
