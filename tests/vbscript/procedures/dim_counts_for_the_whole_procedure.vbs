x = "global"

Sub Test
    x = "local"
    Dim x
End Sub

Test
WScript.Echo x
' expect: global
