WScript.Echo Replace("a-b-c", "-", "+")
' expect: a+b+c
WScript.Echo Replace("a-b-c", "-", "+", 1, 1)
' expect: a+b-c
WScript.Echo Replace("aXbxc", "x", "", 1, -1, vbTextCompare)
' expect: abc
WScript.Echo Replace("abcdef", "d", "D", 3)
' expect: cDef
WScript.Echo Replace("aaa", "aa", "b"), Replace("abc", "", "x")
' expect: ba abc
