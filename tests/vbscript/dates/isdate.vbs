WScript.Echo CStr(IsDate("1/2/2003")), CStr(IsDate("x")), CStr(IsDate(#1/2/2003#)), CStr(IsDate("25:00"))
' expect: True False True False
WScript.Echo CStr(IsDate("2/30/2003")), CStr(IsDate(Empty)), CStr(IsDate("Feb 3, 2003"))
' expect: False False True
