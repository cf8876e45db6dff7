Function Pair(a, b)
    Pair = Array(a, b)
End Function

WScript.Echo Pair("x", "y")(1), UBound(Pair(1, 2))
' expect: y 1
