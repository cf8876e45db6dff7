x = 2
If x = 1 Then
    WScript.Echo "one"
Else If x = 2 Then
    WScript.Echo "two"
End If
End If
' expect: two
