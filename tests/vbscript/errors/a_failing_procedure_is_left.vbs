Sub Fails
    x = 1 / 0
    WScript.Echo "never"
End Sub

On Error Resume Next
Fails
WScript.Echo "behind", Err.Number
' expect: behind 11
