WScript.Echo 2147483647 + 1, TypeName(2147483647 + 1)
' expect: 2147483648 Double
WScript.Echo 65536 * 65536, TypeName(65536 * 65536)
' expect: 4294967296 Double
