WScript.Echo 10 / 4
' expect: 2.5
WScript.Echo TypeName(10 / 5), 10 / 5
' expect: Double 2
