WScript.Echo RGB(255, 0, 0), RGB(0, 255, 0), RGB(0, 0, 255), RGB(300, 0, 0)
' expect: 255 65280 16711680 255
