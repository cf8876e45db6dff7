WScript.Echo Int(2.7), Int(-2.7), Fix(2.7), Fix(-2.7)
' expect: 2 -3 2 -2
WScript.Echo TypeName(Int(2.7)), TypeName(Int(2))
' expect: Double Integer
