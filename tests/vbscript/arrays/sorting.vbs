a = Array(5, 2, 9, 1)
For i = 0 To UBound(a) - 1
    For j = 0 To UBound(a) - 1 - i
        If a(j) > a(j + 1) Then
            t = a(j) : a(j) = a(j + 1) : a(j + 1) = t
        End If
    Next
Next
WScript.Echo Join(a, " ")
' expect: 1 2 5 9
