Class Thing
    Public Property Get Value
        Value = 1
        Exit Property
        Value = 2
    End Property
End Class

x = (New Thing).Value
WScript.Echo x
' expect: 1
