Function Twice(x)
    Twice = x * 2
End Function

Set f = GetRef("Twice")
WScript.Echo f(21)
' expect: 42
