On Error Resume Next
Set x = Nothing
x.Anything
WScript.Echo Err.Number
' expect: 91
Err.Clear
y = 5
y.Anything
WScript.Echo Err.Number
' expect: 424
