Dim a(1)
a(0) = 1
Erase a
WScript.Echo UBound(a), TypeName(a(0))
' expect: 1 Empty
