Class Thing
    Public Value

    Public Sub Twice
        Add Value
    End Sub

    Private Sub Add(n)
        Value = Value + n
    End Sub
End Class

Set t = New Thing
t.Value = 4
t.Twice
WScript.Echo t.Value
' expect: 8
