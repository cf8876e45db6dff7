Class Thing
    Private Default Sub A
    End Sub
End Class
' error: 1057 'Default' specification must also specify 'Public'
