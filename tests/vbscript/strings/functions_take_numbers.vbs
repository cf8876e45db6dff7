WScript.Echo Left(12345, 2), Mid(12345, 2, 3), Replace(12321, 2, "x"), InStr(12345, 3)
' expect: 12 234 1x3x1 3
