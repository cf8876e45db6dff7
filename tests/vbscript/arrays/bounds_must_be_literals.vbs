n = 3
Dim a(n)
' error: 1026 Expected integer constant
