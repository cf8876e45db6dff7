WScript.Echo CStr(#1/2/2003# > #1/1/2003#), CStr(#1/1/2003# = DateSerial(2003, 1, 1))
' expect: True True
