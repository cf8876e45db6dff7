i = 10
Do
    i = i + 1
Loop While i < 5
WScript.Echo i
' expect: 11
Do
    i = i + 1
Loop Until i >= 15
WScript.Echo i
' expect: 15
