Sub Test
    Dim count
    count = count + 1
    WScript.Echo count
End Sub

Test
' expect: 1
Test
' expect: 1
