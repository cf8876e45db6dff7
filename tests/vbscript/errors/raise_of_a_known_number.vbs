On Error Resume Next
Err.Raise 6
WScript.Echo Err.Number, Err.Description
' expect: 6 Overflow
