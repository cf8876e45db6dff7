On Error Resume Next
If 1 / 0 > 1 Then
    WScript.Echo "inside"
End If
' expect: inside
WScript.Echo Err.Number
' expect: 11
