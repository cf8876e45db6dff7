d = #1/2/2003 15:04:05#
WScript.Echo FormatDateTime(d)
' expect: 1/2/2003 3:04:05 PM
WScript.Echo FormatDateTime(d, vbShortDate)
' expect: 1/2/2003
WScript.Echo FormatDateTime(d, vbShortTime)
' expect: 15:04
WScript.Echo FormatDateTime(d, vbLongTime)
' expect: 3:04:05 PM
