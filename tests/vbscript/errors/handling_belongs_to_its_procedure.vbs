Sub Quiet
    On Error Resume Next
    x = 1 / 0
    WScript.Echo "quiet", Err.Number
End Sub

Quiet
' expect: quiet 11
x = 1 / 0
' error: 11 Division by zero
