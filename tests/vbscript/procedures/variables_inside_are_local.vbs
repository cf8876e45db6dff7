x = "global"

Sub Test
    Dim x
    x = "local"
    WScript.Echo x
End Sub

Test
' expect: local
WScript.Echo x
' expect: global
