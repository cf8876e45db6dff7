Sub Describe(o)
    WScript.Echo TypeName(o), o.Name
End Sub

Class Thing
    Public Name

    Public Sub Show
        Describe Me
    End Sub
End Class

Set t = New Thing
t.Name = "lamp"
t.Show
' expect: Thing lamp
