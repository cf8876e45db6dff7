a = Array(1, 2, 3)
b = a
b(0) = "changed"
WScript.Echo a(0), b(0)
' expect: 1 changed
