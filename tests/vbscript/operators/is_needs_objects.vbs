a = 1
WScript.Echo CStr(a Is Nothing)
' error: 424 Object required
