WScript.Echo Len("abc"), Len(""), Len(12345)
' expect: 3 0 5
WScript.Echo TypeName(Len(Null))
' expect: Null
