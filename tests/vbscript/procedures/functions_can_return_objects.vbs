Class Thing
    Public Name
End Class

Function Make(name)
    Set Make = New Thing
    Make.Name = name
End Function

WScript.Echo Make("chair").Name
' expect: chair
