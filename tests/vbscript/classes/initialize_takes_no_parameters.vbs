Class Thing
    Sub Class_Initialize(x)
    End Sub
End Class
' error: 1053 Class initialize or terminate do not have arguments
