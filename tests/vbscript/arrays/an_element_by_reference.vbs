Sub Twice(x)
    x = x * 2
End Sub

a = Array(1, 2)
Twice a(1)
WScript.Echo a(1)
' expect: 4
