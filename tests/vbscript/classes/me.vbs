Class Node
    Public Name

    Public Function Self()
        Set Self = Me
    End Function

    Public Sub Rename(name_)
        Me.Name = name_
    End Sub
End Class

Set n = New Node
n.Rename "new"
WScript.Echo n.Self().Name, CStr(n.Self Is n)
' expect: new True
