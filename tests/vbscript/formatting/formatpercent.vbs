WScript.Echo FormatPercent(0.256), FormatPercent(1.5, 0), FormatPercent(0.12345, 1)
' expect: 25.60% 150% 12.3%
