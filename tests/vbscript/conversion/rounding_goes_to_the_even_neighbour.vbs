WScript.Echo CInt(0.5), CInt(1.5), CInt(2.5), CInt(-0.5), CInt(-1.5)
' expect: 0 2 2 0 -2
WScript.Echo CLng(2.5), CLng(3.5), CByte(2.5)
' expect: 2 4 2
