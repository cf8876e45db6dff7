Sub Define
    ExecuteGlobal "Function Twice(x) : Twice = x * 2 : End Function"
End Sub

Define
WScript.Echo Twice(21)
' expect: 42
