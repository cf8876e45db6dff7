Option Explicit
Dim known
known = 1
WScript.Echo known
' expect: 1
unknown = 2
' error: 500 Variable is undefined
