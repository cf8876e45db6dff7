WScript.Echo x + 1
' expect: 1
WScript.Echo TypeName(x)
' expect: Empty
WScript.Echo CStr(x = 0), CStr(x = "")
' expect: True True
WScript.Echo x & "text"
' expect: text
WScript.Echo TypeName(x + x)
' expect: Integer
