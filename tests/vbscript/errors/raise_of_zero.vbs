Err.Raise 0
' error: 5 Invalid procedure call or argument
