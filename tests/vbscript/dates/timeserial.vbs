WScript.Echo TimeSerial(15, 4, 5)
' expect: 3:04:05 PM
WScript.Echo TimeSerial(12, -15, 0)
' expect: 11:45:00 AM
