On Error Resume Next
x = CInt("abc")
WScript.Echo Err.Number, Err.Description
' expect: 13 Type mismatch
y = x.member
WScript.Echo Err.Description
' expect: Object required
