WScript.Echo UCase("aBc1"), LCase("aBc1")
' expect: ABC1 abc1
