Class Thing
End Class

Set t = New Thing
x = t
' error: 438 Object doesn't support this property or method
