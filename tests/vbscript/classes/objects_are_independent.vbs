Class Thing
    Public Name
End Class

Set a = New Thing
Set b = New Thing
a.Name = "a" : b.Name = "b"
WScript.Echo a.Name & b.Name
' expect: ab
