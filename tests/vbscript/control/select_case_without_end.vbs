Select Case 1
    Case 1
        WScript.Echo "never"
' error: 1014 Expected 'End'
