WScript.Echo CStr(IsEmpty(x)), CStr(IsEmpty("")), CStr(IsEmpty(0))
' expect: True False False
WScript.Echo CStr(IsNull(Null)), CStr(IsNull(x)), CStr(IsNull(Null & Null))
' expect: True False True
WScript.Echo CStr(IsObject(Nothing)), CStr(IsObject(x))
' expect: True False
WScript.Echo CStr(IsArray(Array())), CStr(IsArray("x"))
' expect: True False
