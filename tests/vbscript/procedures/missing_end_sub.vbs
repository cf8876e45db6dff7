Sub Test
    WScript.Echo "never"
' error: 1014 Expected 'End'
