WScript.Echo "[" & Null & "]"
' expect: []
WScript.Echo "[" & Empty & "]"
' expect: []
WScript.Echo TypeName(Null & Null)
' expect: Null
WScript.Echo TypeName(Empty & Empty)
' expect: String
