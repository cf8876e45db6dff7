i = 0
Do While i < 3
    i = i + 1
Loop
WScript.Echo i
' expect: 3
Do Until i = 0
    i = i - 1
Loop
WScript.Echo i
' expect: 0
Do While False
    WScript.Echo "never"
Loop
