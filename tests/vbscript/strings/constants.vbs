WScript.Echo Len(vbCrLf), Asc(vbCr), Asc(vbLf), Asc(vbTab), Asc(vbNullChar), Len(vbNullString)
' expect: 2 13 10 9 0 0
