WScript.Echo FormatNumber(0.5, 2, vbFalse), FormatNumber(0.5, 2, vbTrue)
' expect: .50 0.50
WScript.Echo FormatNumber(-5, 0, vbTrue, vbTrue)
' expect: (5)
WScript.Echo FormatNumber(12345.6, 1, vbTrue, vbFalse, vbFalse)
' expect: 12345.6
