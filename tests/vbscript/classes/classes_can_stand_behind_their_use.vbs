Set t = New Later
WScript.Echo t.Name
' expect: set

Class Later
    Public Name

    Private Sub Class_Initialize
        Name = "set"
    End Sub
End Class
