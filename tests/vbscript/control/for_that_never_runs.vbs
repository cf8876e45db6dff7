For i = 5 To 1
    WScript.Echo "never"
Next
WScript.Echo i
' expect: 5
