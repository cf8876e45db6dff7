WScript.Echo CStr(Null And False)
' expect: False
WScript.Echo CStr(Null Or True)
' expect: True
WScript.Echo CStr(IsNull(Null And True))
' expect: True
WScript.Echo CStr(IsNull(Null Or False))
' expect: True
WScript.Echo CStr(IsNull(Not Null))
' expect: True
WScript.Echo CStr(IsNull(Null Xor True))
' expect: True
WScript.Echo CStr(Null Imp True)
' expect: True
WScript.Echo CStr(False Imp Null)
' expect: True
