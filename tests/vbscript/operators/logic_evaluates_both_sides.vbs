Function Noted(name, value)
    WScript.Echo name
    Noted = value
End Function

If Noted("left", False) And Noted("right", True) Then WScript.Echo "never"
' expect: left
' expect: right
If Noted("left", True) Or Noted("right", True) Then WScript.Echo "both"
' expect: left
' expect: right
' expect: both
