a = 1 : b = 2
WScript.Echo a + _
    b
' expect: 3
WScript.Echo "a" &_
    "b"
' expect: ab
