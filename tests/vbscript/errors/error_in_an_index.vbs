On Error Resume Next
x = Array(1)
y = x(5)
WScript.Echo Err.Number
' expect: 9
