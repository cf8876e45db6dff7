a = "abc"
b = a
b = b & "d"
WScript.Echo a, b
' expect: abc abcd
