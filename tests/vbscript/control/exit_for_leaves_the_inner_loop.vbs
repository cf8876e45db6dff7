For i = 1 To 2
    For j = 1 To 5
        If j = 2 Then Exit For
        text = text & i & j & " "
    Next
Next
WScript.Echo Trim(text)
' expect: 11 21
