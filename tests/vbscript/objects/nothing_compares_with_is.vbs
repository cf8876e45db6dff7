Set x = Nothing
WScript.Echo CStr(x Is Nothing), TypeName(x), CStr(IsObject(x))
' expect: True Nothing True
