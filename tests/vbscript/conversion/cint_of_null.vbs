WScript.Echo CInt(Null)
' error: 94 Invalid use of Null
