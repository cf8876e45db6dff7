WScript.Echo kLater
' expect: 7
Const kLater = 7
