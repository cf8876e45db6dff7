WScript.Echo FormatCurrency(1234.5), FormatCurrency(0.5)
' expect: $1,234.50 $0.50
WScript.Echo FormatCurrency(1234.5, 0)
' expect: $1,235
