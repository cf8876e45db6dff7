Function Fails
    Fails = "half"
    x = 1 / 0
End Function

On Error Resume Next
value = "old"
value = Fails()
WScript.Echo value
' expect: old
