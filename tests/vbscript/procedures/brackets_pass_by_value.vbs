Sub Change(x)
    x = "changed"
End Sub

value = "old"
Change (value)
WScript.Echo value
' expect: old
Call Change(value)
WScript.Echo value
' expect: changed
value = "old"
Call Change((value))
WScript.Echo value
' expect: old
