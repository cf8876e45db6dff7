Class Thing
    Public Name
    Dim Size
End Class

Set t = New Thing
WScript.Echo TypeName(t.Name), TypeName(t.Size)
' expect: Empty Empty
t.Name = "chair" : t.Size = 3
WScript.Echo t.Name & t.Size
' expect: chair3
