step = 1 : error = 2 : default = 3 : property = 4 : explicit = 5
WScript.Echo step + error + default + property + explicit
' expect: 15
