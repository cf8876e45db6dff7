Class Thing
    Public Items(2)
    Private list_()

    Private Sub Class_Initialize
        ReDim list_(1)
        list_(1) = "inside"
    End Sub

    Public Function Last()
        Last = list_(1)
    End Function
End Class

Set t = New Thing
t.Items(1) = "one"
WScript.Echo t.Items(1), UBound(t.Items), t.Last()
' expect: one 2 inside
