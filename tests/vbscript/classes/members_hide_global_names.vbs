name = "global"

Class Thing
    Public Name

    Public Function Get_()
        Get_ = Name
    End Function
End Class

Set t = New Thing
t.Name = "member"
WScript.Echo t.Get_(), name
' expect: member global
