WScript.Echo Hex(255), Hex(4096), Hex(0)
' expect: FF 1000 0
WScript.Echo Oct(8), Oct(64)
' expect: 10 100
WScript.Echo TypeName(Hex(1))
' expect: String
WScript.Echo Hex(&H7FFFFFFF)
' expect: 7FFFFFFF
