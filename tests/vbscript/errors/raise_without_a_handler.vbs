Err.Raise 1234, "here", "own text"
' error: 1234 own text
