Sub Test
End Function
' error: 1016 Expected 'Sub'
