On Error Resume Next
x = 1 / 0
Err.Clear
WScript.Echo Err.Number, "[" & Err.Description & "]"
' expect: 0 []
