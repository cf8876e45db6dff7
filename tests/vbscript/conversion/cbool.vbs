WScript.Echo CStr(CBool(0)), CStr(CBool(2)), CStr(CBool(-0.1))
' expect: False True True
WScript.Echo CStr(CBool("True")), CStr(CBool("false")), CStr(CBool("0")), CStr(CBool("1"))
' expect: True False False True
WScript.Echo CStr(CBool(Empty))
' expect: False
WScript.Echo CStr(CBool("maybe"))
' error: 13 Type mismatch
