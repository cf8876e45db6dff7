On Error Resume Next
For Each x In Array(1, 0, 2)
    Err.Clear
    y = 4 / x
    If Err.Number = 0 Then WScript.Echo y Else WScript.Echo "error " & Err.Number
Next
' expect: 4
' expect: error 11
' expect: 2
