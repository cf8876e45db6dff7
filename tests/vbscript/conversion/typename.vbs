WScript.Echo TypeName(Empty), TypeName(Null), TypeName(Nothing)
' expect: Empty Null Nothing
WScript.Echo TypeName(CByte(1)), TypeName(1), TypeName(100000), TypeName(1.5), TypeName(CSng(1)), TypeName(CCur(1))
' expect: Byte Integer Long Double Single Currency
WScript.Echo TypeName("x"), TypeName(True), TypeName(#1/1/2000#), TypeName(Array())
' expect: String Boolean Date Variant()
