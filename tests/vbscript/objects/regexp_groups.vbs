Set r = New RegExp
r.Pattern = "(\w+)@(\w+)"
r.Global = True
Set found = r.Execute("one@two three@four")
WScript.Echo found.Count, found(0).Value, found(1).FirstIndex, found(1).Length
' expect: 2 one@two 8 10
WScript.Echo found(0).SubMatches(0), found(1).SubMatches(1)
' expect: one four
WScript.Echo r.Replace("one@two", "$2 at $1")
' expect: two at one
