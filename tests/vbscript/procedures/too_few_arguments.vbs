Sub Two(a, b)
End Sub

Two 1
' error: 450 Wrong number of arguments or invalid property assignment
