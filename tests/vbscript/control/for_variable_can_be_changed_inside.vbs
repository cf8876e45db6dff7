For i = 1 To 10
    If i = 3 Then i = 8
    text = text & i & " "
Next
WScript.Echo Trim(text)
' expect: 1 2 8 9 10
