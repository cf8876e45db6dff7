Dim [my name], [end]
[my name] = 1
[end] = 2
WScript.Echo [my name] + [end] + [MY NAME]
' expect: 4
