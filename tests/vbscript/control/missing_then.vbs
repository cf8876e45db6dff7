If True
End If
' error: 1017 Expected 'Then'
