For i = 1 To 1000
    x = Rnd
    If x < 0 Or x >= 1 Then WScript.Echo "outside"
Next
WScript.Echo "done"
' expect: done
