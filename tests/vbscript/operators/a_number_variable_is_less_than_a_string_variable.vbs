number = 10
text = "10"
WScript.Echo CStr(number = text)
' expect: False
text = "1"
WScript.Echo CStr(number < text)
' expect: True
