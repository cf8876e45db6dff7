Class Box
    Private width_

    Public Property Get Width
        Width = width_
    End Property

    Public Property Let Width(value)
        width_ = value * 2
    End Property
End Class

Set b = New Box
b.Width = 5
WScript.Echo b.Width
' expect: 10
