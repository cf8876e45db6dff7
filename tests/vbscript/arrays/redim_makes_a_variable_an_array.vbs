ReDim a(2)
a(2) = 5
WScript.Echo a(2), UBound(a)
' expect: 5 2
