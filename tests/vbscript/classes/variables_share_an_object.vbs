Class Thing
    Public Name
End Class

Set a = New Thing
Set b = a
b.Name = "shared"
WScript.Echo a.Name
' expect: shared
