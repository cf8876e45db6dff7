Select Case 5
    Case 5: WScript.Echo "first"
    Case 5: WScript.Echo "second"
End Select
' expect: first
Select Case 1
    Case 2
        WScript.Echo "never"
End Select
Select Case True
    Case 1 > 2
        WScript.Echo "never"
    Case 2 > 1
        WScript.Echo "a condition"
End Select
' expect: a condition
