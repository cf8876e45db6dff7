For i = 1 To 10
    If i = 4 Then Exit For
Next
WScript.Echo i
' expect: 4
For Each x In Array("a", "b", "c")
    If x = "b" Then Exit For
Next
WScript.Echo x
' expect: b
