WScript.Echo 6 And 3
' expect: 2
WScript.Echo 6 Or 3
' expect: 7
WScript.Echo 6 Xor 3
' expect: 5
WScript.Echo Not 5
' expect: -6
WScript.Echo 6 Eqv 3
' expect: -6
WScript.Echo 6 Imp 3
' expect: -5
WScript.Echo 2.5 And 7
' expect: 2
