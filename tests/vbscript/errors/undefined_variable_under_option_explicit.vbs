Option Explicit
On Error Resume Next
x = 1
WScript.Echo Err.Number
' expect: 500
