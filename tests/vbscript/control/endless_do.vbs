Do
    i = i + 1
    If i = 5 Then Exit Do
Loop
WScript.Echo i
' expect: 5
