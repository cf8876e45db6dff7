WScript.Echo 1234567890123
' expect: 1234567890123
WScript.Echo 0.1 * 3
' expect: 0.3
WScript.Echo 1e308
' expect: 1E+308
