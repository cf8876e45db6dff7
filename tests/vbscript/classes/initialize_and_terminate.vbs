Class Noisy
    Private Sub Class_Initialize
        WScript.Echo "made"
    End Sub

    Private Sub Class_Terminate
        WScript.Echo "gone"
    End Sub
End Class

Set n = New Noisy
' expect: made
Set n = Nothing
' expect: gone
WScript.Echo "end"
' expect: end
