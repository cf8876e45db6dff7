Sub One(a)
End Sub

One 1, 2
' error: 450 Wrong number of arguments or invalid property assignment
