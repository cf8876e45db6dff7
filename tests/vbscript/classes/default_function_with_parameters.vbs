Class Adder
    Public Default Function Add(a, b)
        Add = a + b
    End Function
End Class

Set sum = New Adder
WScript.Echo sum(2, 3)
' expect: 5
