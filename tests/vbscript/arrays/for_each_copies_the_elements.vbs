a = Array(1, 2)
For Each x In a
    x = x * 10
Next
WScript.Echo a(0), a(1)
' expect: 1 2
