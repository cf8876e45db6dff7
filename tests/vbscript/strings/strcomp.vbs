WScript.Echo StrComp("a", "b"), StrComp("b", "a"), StrComp("a", "a")
' expect: -1 1 0
WScript.Echo StrComp("ABC", "abc"), StrComp("ABC", "abc", vbTextCompare)
' expect: -1 0
WScript.Echo TypeName(StrComp(Null, "a"))
' expect: Null
