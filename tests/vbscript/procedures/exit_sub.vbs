Sub Test
    WScript.Echo "before"
    Exit Sub
    WScript.Echo "never"
End Sub

Test
' expect: before
