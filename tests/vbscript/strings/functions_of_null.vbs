WScript.Echo TypeName(Left(Null, 1)), TypeName(UCase(Null)), TypeName(Trim(Null)), TypeName(Mid(Null, 1, 1))
' expect: Null Null Null Null
