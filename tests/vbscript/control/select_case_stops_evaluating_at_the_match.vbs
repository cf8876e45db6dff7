Function Noted(x)
    WScript.Echo "asked for " & x
    Noted = x
End Function

Select Case 2
    Case Noted(1), Noted(2), Noted(3)
        WScript.Echo "found"
    Case Noted(4)
End Select
' expect: asked for 1
' expect: asked for 2
' expect: found
