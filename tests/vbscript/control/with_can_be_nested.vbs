Class Node
    Public Name, Child
End Class

Set outer = New Node
Set outer.Child = New Node
With outer
    .Name = "outer"
    With .Child
        .Name = "inner"
    End With
    WScript.Echo .Name, .Child.Name
End With
' expect: outer inner
