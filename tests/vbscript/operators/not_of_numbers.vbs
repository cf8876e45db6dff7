WScript.Echo Not 0, Not -1, Not 1
' expect: -1 0 -2
WScript.Echo CStr(Not True), CStr(Not False)
' expect: False True
