For i = 1 To 2
    Do
        While True
            If i = 1 Then
                Select Case i
                    Case 1
                        WScript.Echo "deep"
                End Select
            End If
            Exit Do
        Wend
    Loop
Next
' expect: deep
