On Error Resume Next
x = 1 / 0
If Err Then WScript.Echo "failed"
' expect: failed
WScript.Echo Err & ""
' expect: 11
