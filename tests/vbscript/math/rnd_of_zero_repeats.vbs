x = Rnd
WScript.Echo CStr(Rnd(0) = x), CStr(Rnd(1) = x)
' expect: True False
