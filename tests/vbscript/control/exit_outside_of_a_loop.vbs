Exit For
' error: 1039 Invalid 'exit' statement
