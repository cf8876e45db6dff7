Class Thing
    Public Sub Fill(x)
        x = "filled"
    End Sub
End Class

Set t = New Thing
value = "empty"
t.Fill value
WScript.Echo value
' expect: filled
