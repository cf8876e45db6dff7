Class Noisy
    Private Sub Class_Terminate
        WScript.Echo "gone"
    End Sub
End Class

Sub Test
    Dim n
    Set n = New Noisy
    WScript.Echo "inside"
End Sub

Test
' expect: inside
' expect: gone
WScript.Echo "behind"
' expect: behind
