Me.Value = 1
' error: 1037 Invalid use of 'Me' keyword
