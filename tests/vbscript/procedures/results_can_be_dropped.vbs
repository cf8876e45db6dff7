Function Noted(x)
    WScript.Echo "called with " & x
    Noted = 1
End Function

Noted 5
' expect: called with 5
Call Noted(6)
' expect: called with 6
