WScript.Echo TypeName(InStr(Null, "a")), TypeName(InStr("a", Null))
' expect: Null Null
