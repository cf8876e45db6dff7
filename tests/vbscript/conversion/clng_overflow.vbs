WScript.Echo CLng(2147483647)
' expect: 2147483647
WScript.Echo CLng(2147483648)
' error: 6 Overflow
