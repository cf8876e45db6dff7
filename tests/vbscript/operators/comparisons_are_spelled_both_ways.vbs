WScript.Echo CStr(1 <> 2), CStr(1 >< 2)
' expect: True True
WScript.Echo CStr(1 <= 1), CStr(1 =< 1)
' expect: True True
WScript.Echo CStr(1 >= 2), CStr(1 => 2)
' expect: False False
