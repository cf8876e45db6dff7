x = 4
WScript.Echo Eval("x * 2 + 1")
' expect: 9
WScript.Echo CStr(Eval("x = 4")), x
' expect: True 4
