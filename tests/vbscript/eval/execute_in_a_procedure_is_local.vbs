Sub Test
    Dim x
    x = 1
    Execute "x = x + 1"
    WScript.Echo x
End Sub

x = 10
Test
' expect: 2
WScript.Echo x
' expect: 10
