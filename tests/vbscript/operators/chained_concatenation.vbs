For i = 1 To 5
    line = line & i & ","
Next
WScript.Echo line
' expect: 1,2,3,4,5,
