WScript.Echo DateSerial(2003, 1, 2)
' expect: 1/2/2003
WScript.Echo DateSerial(2003, 13, 1), DateSerial(2003, 1, 0), DateSerial(2003, 3, -1)
' expect: 1/1/2004 12/31/2002 2/27/2003
WScript.Echo DateSerial(2004, 2, 29), DateSerial(2003, 2, 29)
' expect: 2/29/2004 3/1/2003
