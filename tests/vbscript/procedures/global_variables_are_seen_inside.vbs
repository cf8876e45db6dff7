x = 1

Sub Test
    x = x + 1
End Sub

Test
Test
WScript.Echo x
' expect: 3
