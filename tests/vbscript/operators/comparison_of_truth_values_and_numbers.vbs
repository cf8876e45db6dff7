yes = True
WScript.Echo CStr(yes = -1), CStr(yes = 1), CStr(False = 0)
' expect: True False True
