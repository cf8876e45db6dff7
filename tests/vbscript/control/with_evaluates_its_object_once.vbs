Class Counter
    Public Value
End Class

Function Made()
    calls = calls + 1
    Set Made = New Counter
End Function

Dim calls
With Made()
    .Value = 1
    .Value = .Value + 1
    WScript.Echo .Value, calls
End With
' expect: 2 1
