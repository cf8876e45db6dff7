a = "1" : b = "2"
WScript.Echo a + b
' expect: 12
WScript.Echo a + 2
' expect: 3
WScript.Echo TypeName(a + 2)
' expect: Double
WScript.Echo a & 2
' expect: 12
