Sub Quiet
    On Error Resume Next
    x = 1 / 0
    Err.Clear
End Sub

On Error Resume Next
Quiet
WScript.Echo Err.Number
' expect: 0
