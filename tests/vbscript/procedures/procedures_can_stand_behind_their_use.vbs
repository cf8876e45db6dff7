WScript.Echo Later(2)
' expect: 4

Function Later(x)
    Later = x + 2
End Function
