Sub Change(x)
    x = x & "!"
    WScript.Echo x
End Sub

value = "old"
Change value & ""
' expect: old!
WScript.Echo value
' expect: old
Change "text"
' expect: text!
