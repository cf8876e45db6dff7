Class Table
    Private cells_(9)

    Public Property Get Cell(i)
        Cell = cells_(i)
    End Property

    Public Property Let Cell(i, value)
        cells_(i) = value
    End Property
End Class

Set t = New Table
t.Cell(3) = "three"
WScript.Echo t.Cell(3), TypeName(t.Cell(4))
' expect: three Empty
