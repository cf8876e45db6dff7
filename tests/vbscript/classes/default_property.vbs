Class Box
    Private value_

    Public Default Property Get Value
        Value = value_
    End Property

    Public Property Let Value(v)
        value_ = v
    End Property
End Class

Set b = New Box
b.Value = 5
WScript.Echo b + 1, b & "x"
' expect: 6 5x
x = b
WScript.Echo TypeName(x)
' expect: Integer
