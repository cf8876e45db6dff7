n = 3
For i = 1 To n
    n = 10
    count = count + 1
Next
WScript.Echo count
' expect: 3
