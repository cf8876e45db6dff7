Class Thing
    Public Sub Fail
        Err.Raise 99, "Thing", "failed"
    End Sub
End Class

Set t = New Thing
On Error Resume Next
t.Fail
WScript.Echo Err.Number, Err.Source, Err.Description
' expect: 99 Thing failed
