WScript.Echo VarType(Empty), VarType(Null), VarType(1), VarType(100000), VarType(CSng(1)), VarType(1.5)
' expect: 0 1 2 3 4 5
WScript.Echo VarType(CCur(1)), VarType(#1/1/2000#), VarType("x"), VarType(Nothing), VarType(True), VarType(CByte(1))
' expect: 6 7 8 9 11 17
WScript.Echo VarType(Array(1))
' expect: 8204
