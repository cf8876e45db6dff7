On Error Resume Next
Err.Raise vbObjectError + 5, "class", "text"
WScript.Echo Err.Number, CStr(Err.Number = vbObjectError + 5)
' expect: -2147221499 True
