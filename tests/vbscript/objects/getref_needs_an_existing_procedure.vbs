Set f = GetRef("Missing")
' error: 5 Invalid procedure call or argument
