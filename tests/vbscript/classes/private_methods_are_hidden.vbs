Class Thing
    Private Sub Secret
    End Sub
End Class

Set t = New Thing
t.Secret
' error: 438 Object doesn't support this property or method
