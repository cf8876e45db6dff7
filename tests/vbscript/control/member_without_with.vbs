.Value = 1
' error: 505 Invalid or unqualified reference
