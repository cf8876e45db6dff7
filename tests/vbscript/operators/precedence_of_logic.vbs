WScript.Echo CStr(True Or True And False)
' expect: True
WScript.Echo CStr((True Or True) And False)
' expect: False
WScript.Echo CStr(Not False And False)
' expect: False
WScript.Echo CStr(Not 1 = 2)
' expect: True
WScript.Echo CStr(True Xor True Or True)
' expect: False
WScript.Echo CStr(False Imp False And False)
' expect: True
