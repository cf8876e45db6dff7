x = 1
Loop
' error: 1038 'loop' without 'do'
