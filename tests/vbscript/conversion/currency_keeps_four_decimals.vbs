WScript.Echo CCur(1.23456)
' expect: 1.2346
WScript.Echo CCur("10.5") * 2, TypeName(CCur(1) * 2)
' expect: 21 Currency
WScript.Echo CCur(0.00005)
' expect: 0
