Function Twice(x)
    Twice = x * 2
End Function

Function Nothing_()
End Function

WScript.Echo Twice(4), TypeName(Nothing_())
' expect: 8 Empty
