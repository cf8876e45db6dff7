Sub Change(ByVal x)
    x = "changed"
    WScript.Echo x
End Sub

value = "old"
Change value
' expect: changed
WScript.Echo value
' expect: old
