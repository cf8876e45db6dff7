WScript.Echo CStr(True And False), CStr(True Or False), CStr(True Xor True)
' expect: False True False
WScript.Echo CStr(True Eqv False), CStr(True Imp False), CStr(False Imp True)
' expect: False False True
WScript.Echo TypeName(True And False), TypeName(1 And True)
' expect: Boolean Integer
