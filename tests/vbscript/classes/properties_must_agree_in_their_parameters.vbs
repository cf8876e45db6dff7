Class Thing
    Public Property Get Item(i)
    End Property

    Public Property Let Item(value)
    End Property
End Class
' error: 1051 Number of arguments must be consistent across properties specification
