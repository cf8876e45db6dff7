WScript.Echo 32767 + 1, TypeName(32767 + 1)
' expect: 32768 Long
WScript.Echo 300 * 300, TypeName(300 * 300)
' expect: 90000 Long
WScript.Echo -32768 - 1, TypeName(-32767 - 2)
' expect: -32769 Long
