On Error Resume Next
x = 1 / 0
y = 5
WScript.Echo y, Err.Number
' expect: 5 11
x = CInt("a")
WScript.Echo Err.Number
' expect: 13
