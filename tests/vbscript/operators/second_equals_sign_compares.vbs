y = 2 : z = 2
x = y = z
WScript.Echo CStr(x)
' expect: True
