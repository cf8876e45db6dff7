Set r = New RegExp
r.Pattern = "\d+"
r.Global = True
For Each m In r.Execute("a1b22c333")
    WScript.Echo m.Value, m.FirstIndex
Next
' expect: 1 1
' expect: 22 3
' expect: 333 6
