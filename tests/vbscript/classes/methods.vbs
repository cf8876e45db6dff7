Class Counter
    Private count_

    Public Sub Add(n)
        count_ = count_ + n
    End Sub

    Public Function Total()
        Total = count_
    End Function
End Class

Set c = New Counter
c.Add 2
Call c.Add(3)
c.Add (4)
WScript.Echo c.Total(), c.Total
' expect: 9 9
