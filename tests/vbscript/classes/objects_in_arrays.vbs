Class Thing
    Public Name
End Class

Dim list(1)
Set list(0) = New Thing
list(0).Name = "first"
Set list(1) = list(0)
list(1).Name = "renamed"
WScript.Echo list(0).Name, CStr(list(0) Is list(1))
' expect: renamed True
