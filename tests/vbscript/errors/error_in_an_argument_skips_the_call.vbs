Sub Show(x)
    WScript.Echo "called"
End Sub

On Error Resume Next
Show 1 / 0
WScript.Echo "behind", Err.Number
' expect: behind 11
