Set d = CreateObject("Scripting.Dictionary")
On Error Resume Next
d.Remove "missing"
WScript.Echo CStr(Err.Number <> 0)
' expect: True
