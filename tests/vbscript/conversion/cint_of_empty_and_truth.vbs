WScript.Echo CInt(Empty), CInt(True), CInt(False)
' expect: 0 -1 0
