d = #1/1/2003 11:30 PM# + TimeSerial(1, 0, 0)
WScript.Echo d
' expect: 1/2/2003 12:30:00 AM
