If True Then
    WScript.Echo "never"
' error: 1014 Expected 'End'
