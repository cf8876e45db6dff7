Sub Both(a, b)
    a = 1
    b = 2
    WScript.Echo a & "," & b
End Sub

x = 0
Both x, x
' expect: 2,2
WScript.Echo x
' expect: 2
