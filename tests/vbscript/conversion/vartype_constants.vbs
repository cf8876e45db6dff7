WScript.Echo vbEmpty, vbNull, vbInteger, vbLong, vbSingle, vbDouble, vbCurrency, vbDate, vbString, vbObject
' expect: 0 1 2 3 4 5 6 7 8 9
WScript.Echo vbError, vbBoolean, vbVariant, vbDataObject, vbByte, vbArray
' expect: 10 11 12 13 17 8192
