Sub Check
    WScript.Echo Err.Number
End Sub

On Error Resume Next
x = 1 / 0
Check
' expect: 11
