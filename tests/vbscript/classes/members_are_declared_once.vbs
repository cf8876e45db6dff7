Class Thing
    Public Name

    Public Sub Name
    End Sub
End Class
' error: 1041 Name redefined
