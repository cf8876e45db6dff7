Function Stars(n)
    For i = 1 To n
        Stars = Stars & "*"
    Next
End Function

WScript.Echo Stars(3)
' expect: ***
