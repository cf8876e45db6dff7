WScript.Echo CInt(32767)
' expect: 32767
WScript.Echo CInt(32768)
' error: 6 Overflow
