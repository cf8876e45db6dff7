WScript.Echo Sqr(9), Sqr(2), Exp(0), Exp(1), Log(1)
' expect: 3 1.4142135623731 1 2.71828182845905 0
