parts = Split("a,b,c", ",")
WScript.Echo UBound(parts), parts(0), parts(2)
' expect: 2 a c
parts = Split("one two  three")
WScript.Echo UBound(parts), "[" & parts(2) & "]"
' expect: 3 []
parts = Split("a,b,c", ",", 2)
WScript.Echo UBound(parts), parts(1)
' expect: 1 b,c
WScript.Echo UBound(Split("", ","))
' expect: -1
parts = Split("aXbxc", "x", -1, vbTextCompare)
WScript.Echo UBound(parts)
' expect: 2
parts = Split("abc", "")
WScript.Echo UBound(parts), parts(0)
' expect: 0 abc
