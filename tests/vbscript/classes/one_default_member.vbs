Class Thing
    Public Default Sub A
    End Sub

    Public Default Sub B
    End Sub
End Class
' error: 1052 Cannot have multiple default property/method in a Class
