Sub Outer(x)
    Inner x
End Sub

Sub Inner(y)
    y = y + 1
End Sub

n = 1
Outer n
WScript.Echo n
' expect: 2
