WScript.Echo FormatNumber(1234.567), FormatNumber(0.5), FormatNumber(-1234.5)
' expect: 1,234.57 0.50 -1,234.50
WScript.Echo FormatNumber(1234.567, 1), FormatNumber(1234.567, 0), FormatNumber(1234567, 0)
' expect: 1,234.6 1,235 1,234,567
