WScript.Echo CByte(255)
' expect: 255
WScript.Echo CByte(256)
' error: 6 Overflow
