WScript.Echo CByte(200) + CByte(100), TypeName(CByte(200) + CByte(100))
' expect: 300 Integer
WScript.Echo CByte(1) - CByte(2), TypeName(CByte(1) - CByte(2))
' expect: -1 Integer
WScript.Echo TypeName(CByte(1) + CByte(2))
' expect: Byte
