Class Point
    Public X, Y
End Class

Set p = New Point
With p
    .X = 3
    .Y = .X * 2
    WScript.Echo .X & "," & .Y
End With
' expect: 3,6
