For i = 10 To 1 Step -3
    text = text & i & " "
Next
WScript.Echo text & i
' expect: 10 7 4 1 -2
For x = 0 To 1 Step 0.25
    count = count + 1
Next
WScript.Echo count
' expect: 5
