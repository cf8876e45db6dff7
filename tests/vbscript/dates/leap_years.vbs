WScript.Echo Day(DateSerial(2004, 3, 0)), Day(DateSerial(2003, 3, 0)), Day(DateSerial(1900, 3, 0)), Day(DateSerial(2000, 3, 0))
' expect: 29 28 28 29
