Class Noisy
    Private Sub Class_Terminate
        WScript.Echo "gone"
    End Sub
End Class

Set n = New Noisy
n = 5
' expect: gone
WScript.Echo n
' expect: 5
