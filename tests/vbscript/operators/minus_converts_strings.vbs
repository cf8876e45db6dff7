a = "10" : b = "4"
WScript.Echo a - b, a * b, a / b
' expect: 6 40 2.5
WScript.Echo -"5"
' expect: -5
