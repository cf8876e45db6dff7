upper = "3"
For i = "1" To upper
    count = count + 1
Next
WScript.Echo count
' expect: 3
