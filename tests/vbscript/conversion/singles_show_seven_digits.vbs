WScript.Echo CSng(1 / 3)
' expect: 0.3333333
WScript.Echo CSng(0.1), TypeName(CSng(0.1))
' expect: 0.1 Single
