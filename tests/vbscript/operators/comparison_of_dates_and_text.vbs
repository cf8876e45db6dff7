d = #1/2/2003#
WScript.Echo CStr(d = DateSerial(2003, 1, 2)), CStr(d < #1/3/2003#), CStr(d <> d)
' expect: True True False
