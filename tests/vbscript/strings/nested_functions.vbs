WScript.Echo UCase(Left(Trim("  hello world "), 5))
' expect: HELLO
