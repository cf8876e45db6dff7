Dim a(2)
a(3) = 1
' error: 9 Subscript out of range
