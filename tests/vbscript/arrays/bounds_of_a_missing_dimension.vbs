Dim a(1)
WScript.Echo UBound(a, 2)
' error: 9 Subscript out of range
