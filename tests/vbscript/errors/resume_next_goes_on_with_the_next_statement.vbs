On Error Resume Next
x = 1
x = 1 / 0
WScript.Echo x, Err.Number
' expect: 1 11
WScript.Echo Err.Description
' expect: Division by zero
