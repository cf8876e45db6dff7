WScript.Echo CInt("42"), CInt(" 42 "), CInt("-7"), CInt("2.5"), CInt("&HFF")
' expect: 42 42 -7 2 255
WScript.Echo CInt("forty")
' error: 13 Type mismatch
