Sub Show(a, b)
End Sub

Show(1, 2)
' error: 1044 Cannot use parentheses when calling a Sub
