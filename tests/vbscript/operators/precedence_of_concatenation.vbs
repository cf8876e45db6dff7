WScript.Echo "a" & 1 + 2 & "b"
' expect: a3b
WScript.Echo CStr("1" & "2" = "12")
' expect: True
WScript.Echo 1 & 2 * 3
' expect: 16
