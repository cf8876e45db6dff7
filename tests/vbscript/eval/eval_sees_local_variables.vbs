Function Value(n)
    Value = Eval("n + 1")
End Function

WScript.Echo Value(4)
' expect: 5
