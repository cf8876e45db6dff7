WScript.Echo #1/2/2003#
' expect: 1/2/2003
WScript.Echo #2003-01-02#
' expect: 1/2/2003
WScript.Echo #2 Jan 2003#
' expect: 1/2/2003
WScript.Echo #1/2/2003 3:04:05 PM#
' expect: 1/2/2003 3:04:05 PM
WScript.Echo #3:04 PM#
' expect: 3:04:00 PM
