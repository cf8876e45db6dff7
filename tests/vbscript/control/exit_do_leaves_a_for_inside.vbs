Do
    For i = 1 To 10
        If i = 3 Then Exit Do
    Next
    WScript.Echo "never"
Loop
WScript.Echo i
' expect: 3
