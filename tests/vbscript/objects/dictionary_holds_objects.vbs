Class Thing
    Public Name
End Class

Set d = CreateObject("Scripting.Dictionary")
Set t = New Thing
t.Name = "kept"
d.Add "t", t
WScript.Echo d("t").Name, CStr(d("t") Is t)
' expect: kept True
Set d("u") = New Thing
d("u").Name = "other"
WScript.Echo d("u").Name
' expect: other
