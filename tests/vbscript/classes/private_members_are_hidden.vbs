Class Thing
    Private secret_
End Class

Set t = New Thing
t.secret_ = 1
' error: 438 Object doesn't support this property or method
