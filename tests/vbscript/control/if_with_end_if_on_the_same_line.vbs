x = 1
If x = 1 Then WScript.Echo "one" End If
' expect: one
If x = 2 Then
    WScript.Echo "never"
Else WScript.Echo "else"
End If
' expect: else
