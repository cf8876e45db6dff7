WScript.Echo CStr("a" = "A")
' expect: False
WScript.Echo CStr("B" < "a")
' expect: True
WScript.Echo CStr("abc" < "abd"), CStr("ab" < "abc"), CStr("" < "a")
' expect: True True True
WScript.Echo CStr("10" < "9")
' expect: True
