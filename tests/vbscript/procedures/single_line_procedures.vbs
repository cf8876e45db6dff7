Sub Show(x) : WScript.Echo "[" & x & "]" : End Sub
Function Half(x) : Half = x / 2 : End Function

Show Half(5)
' expect: [2.5]
