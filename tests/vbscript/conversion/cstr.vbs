WScript.Echo CStr(1) & CStr(1.5) & CStr(True) & CStr("x")
' expect: 11.5Truex
WScript.Echo "[" & CStr(Empty) & "]"
' expect: []
WScript.Echo CStr(Null)
' error: 94 Invalid use of Null
