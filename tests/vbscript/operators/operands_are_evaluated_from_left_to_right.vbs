Function Noted(x)
    WScript.Echo x
    Noted = x
End Function

y = Noted(1) + Noted(2) * Noted(3)
' expect: 1
' expect: 2
' expect: 3
WScript.Echo y
' expect: 7
