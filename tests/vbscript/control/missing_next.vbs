For i = 1 To 2
    WScript.Echo i
' error: 1020 Expected 'Next'
