a = String(10000, "a")
b = a & "b"
WScript.Echo CStr(a = b), CStr(a < b), Len(b)
' expect: False True 10001
