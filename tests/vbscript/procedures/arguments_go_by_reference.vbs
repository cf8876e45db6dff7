Sub Change(x)
    x = "changed"
End Sub

value = "old"
Change value
WScript.Echo value
' expect: changed
