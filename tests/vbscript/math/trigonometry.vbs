WScript.Echo Sin(0), Cos(0), Tan(0), Atn(1) * 4
' expect: 0 1 0 3.14159265358979
