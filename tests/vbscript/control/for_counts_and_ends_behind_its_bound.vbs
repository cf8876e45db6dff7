For i = 1 To 3
    text = text & i
Next
WScript.Echo text, i
' expect: 123 4
