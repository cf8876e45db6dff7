WScript.Echo CDate("13/2/2003"), CDate("2/13/2003")
' expect: 2/13/2003 2/13/2003
