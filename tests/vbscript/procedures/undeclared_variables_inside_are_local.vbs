Sub Test
    hidden = 5
End Sub

Test
WScript.Echo TypeName(hidden)
' expect: Empty
