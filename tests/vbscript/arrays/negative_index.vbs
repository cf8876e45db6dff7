Dim a(2)
i = -1
WScript.Echo a(i)
' error: 9 Subscript out of range
