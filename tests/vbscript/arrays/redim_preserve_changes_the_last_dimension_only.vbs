Dim a()
ReDim a(1, 1)
a(1, 1) = "kept"
ReDim Preserve a(1, 3)
WScript.Echo a(1, 1), UBound(a, 2)
' expect: kept 3
ReDim Preserve a(2, 3)
' error: 9 Subscript out of range
