Dim a()
WScript.Echo CStr(IsArray(a))
' expect: True
WScript.Echo UBound(a)
' error: 9 Subscript out of range
