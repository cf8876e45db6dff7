Dim a()
ReDim a(3)
Erase a
WScript.Echo UBound(a)
' error: 9 Subscript out of range
