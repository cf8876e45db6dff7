WScript.Echo Asc("A"), Asc("ABC"), AscW("A"), Chr(65), ChrW(65)
' expect: 65 65 65 A A
WScript.Echo Len(ChrW(8364)), AscW(ChrW(8364))
' expect: 1 8364
