Dim a(2)
WScript.Echo LBound(a), UBound(a)
' expect: 0 2
a(0) = "first" : a(2) = "last"
WScript.Echo a(0), TypeName(a(1)), a(2)
' expect: first Empty last
