WScript.Echo TypeName(1), TypeName(32767), TypeName(32768), TypeName(2147483647), TypeName(2147483648)
' expect: Integer Integer Long Long Double
WScript.Echo TypeName(1.0), TypeName(1e3)
' expect: Double Double
