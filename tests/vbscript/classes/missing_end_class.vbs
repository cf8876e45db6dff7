Class Thing
    Public Name
' error: 1014 Expected 'End'
