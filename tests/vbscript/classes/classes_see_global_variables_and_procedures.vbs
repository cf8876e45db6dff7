factor = 3

Function Scaled(x)
    Scaled = x * factor
End Function

Class Thing
    Public Function Value
        Value = Scaled(2) + factor
    End Function
End Class

x = (New Thing).Value
WScript.Echo x
' expect: 9
