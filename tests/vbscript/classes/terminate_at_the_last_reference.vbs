Class Noisy
    Private Sub Class_Terminate
        WScript.Echo "gone"
    End Sub
End Class

Set a = New Noisy
Set b = a
Set a = Nothing
WScript.Echo "still there"
' expect: still there
Set b = Nothing
' expect: gone
