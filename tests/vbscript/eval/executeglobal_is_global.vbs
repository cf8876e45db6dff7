Sub Test
    Dim x
    x = 1
    ExecuteGlobal "x = 20"
    WScript.Echo x
End Sub

x = 10
Test
' expect: 1
WScript.Echo x
' expect: 20
