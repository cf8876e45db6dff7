WScript.Echo True + True
' expect: -2
WScript.Echo TypeName(True + 1), True + 1
' expect: Integer 0
WScript.Echo -True
' expect: 1
WScript.Echo CStr(True = -1)
' expect: True
