WScript.Echo &HFF, &H7FFF, &HFFFF, &HFFFF&
' expect: 255 32767 -1 65535
WScript.Echo TypeName(&HFFFF), TypeName(&HFFFF&), TypeName(&H10000)
' expect: Integer Long Long
WScript.Echo &O17, &o10
' expect: 15 8
