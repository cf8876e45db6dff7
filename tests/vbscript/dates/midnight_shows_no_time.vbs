WScript.Echo DateSerial(2003, 1, 2) + TimeSerial(0, 0, 0)
' expect: 1/2/2003
WScript.Echo TimeSerial(0, 0, 0)
' expect: 12:00:00 AM
