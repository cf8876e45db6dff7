Sub Again
    Again
End Sub

Again
' error: 28 Out of stack space
