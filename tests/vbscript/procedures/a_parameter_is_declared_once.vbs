Sub Test(a, A)
End Sub
' error: 1041 Name redefined
