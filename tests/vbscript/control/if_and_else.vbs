For i = 1 To 3
    If i = 1 Then
        WScript.Echo "one"
    ElseIf i = 2 Then
        WScript.Echo "two"
    Else
        WScript.Echo "more"
    End If
Next
' expect: one
' expect: two
' expect: more
