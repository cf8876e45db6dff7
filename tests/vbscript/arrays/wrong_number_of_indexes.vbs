Dim a(2, 2)
WScript.Echo a(1)
' error: 9 Subscript out of range
