Function Counted()
    calls = calls + 1
    Counted = 3
End Function

Dim calls
Select Case Counted()
    Case 1
    Case 2
    Case 3
        WScript.Echo calls
End Select
' expect: 1
