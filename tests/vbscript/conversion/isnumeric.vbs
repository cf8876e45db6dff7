WScript.Echo CStr(IsNumeric(1)), CStr(IsNumeric("1.5")), CStr(IsNumeric(" 1 ")), CStr(IsNumeric("1e3"))
' expect: True True True True
WScript.Echo CStr(IsNumeric("x")), CStr(IsNumeric("")), CStr(IsNumeric("1 2")), CStr(IsNumeric(Null))
' expect: False False False False
WScript.Echo CStr(IsNumeric(Empty)), CStr(IsNumeric(True)), CStr(IsNumeric("&H10"))
' expect: True True True
