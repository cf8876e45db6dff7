For i = 1 To 2
    For i = 1 To 2
    Next
Next
' error: 1040 Invalid 'for' loop control variable
