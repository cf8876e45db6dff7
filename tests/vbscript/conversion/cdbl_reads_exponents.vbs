WScript.Echo CDbl("1e3"), CDbl("1.5E-2"), CDbl("1,234.5")
' expect: 1000 0.015 1234.5
WScript.Echo TypeName(CDbl("1"))
' expect: Double
