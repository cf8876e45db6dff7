a = Rnd(-5)
b = Rnd
x = Rnd(-5)
WScript.Echo CStr(a = x), CStr(b = Rnd)
' expect: True True
