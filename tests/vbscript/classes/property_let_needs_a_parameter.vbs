Class Thing
    Public Property Let Item
    End Property
End Class
' error: 1054 Property set or let must have at least one argument
