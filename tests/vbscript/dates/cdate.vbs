WScript.Echo CDate("1/2/2003"), CDate("January 2, 2003"), CDate("3:04 PM")
' expect: 1/2/2003 1/2/2003 3:04:00 PM
WScript.Echo CDate(37623), TypeName(CDate(37623))
' expect: 1/2/2003 Date
WScript.Echo CDate("someday")
' error: 13 Type mismatch
