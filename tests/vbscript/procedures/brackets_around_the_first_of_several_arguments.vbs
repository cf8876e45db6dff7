Sub Show(a, b)
    WScript.Echo a & "," & b
End Sub

Show (1 + 2) * 3, 4
' expect: 9,4
Show (5), 6
' expect: 5,6
