WScript.Echo Round(2.5), Round(3.5), Round(-2.5)
' expect: 2 4 -2
WScript.Echo Round(3.14159, 2), Round(0.125, 2), Round(0.375, 2), Round(2.5, 0)
' expect: 3.14 0.12 0.38 2
