i = 3
While i > 0
    text = text & i
    i = i - 1
Wend
WScript.Echo text
' expect: 321
