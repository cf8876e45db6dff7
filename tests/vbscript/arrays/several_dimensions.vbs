Dim a(1, 2)
a(1, 2) = "corner"
a(0, 0) = "origin"
WScript.Echo a(1, 2), a(0, 0), UBound(a), UBound(a, 2)
' expect: corner origin 1 2
