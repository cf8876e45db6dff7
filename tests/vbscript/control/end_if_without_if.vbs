x = 1
End If
' error: 1024 Expected statement
