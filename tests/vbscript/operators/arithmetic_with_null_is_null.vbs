WScript.Echo TypeName(Null + 1), TypeName(1 - Null), TypeName(Null * 2)
' expect: Null Null Null
WScript.Echo TypeName(-Null), TypeName(2 ^ Null), TypeName(Null \ 1)
' expect: Null Null Null
