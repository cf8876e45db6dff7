WScript.Echo 7 \ 2
' expect: 3
WScript.Echo -7 \ 2
' expect: -3
WScript.Echo 6.7 \ 2
' expect: 3
WScript.Echo 2.5 \ 1
' expect: 2
WScript.Echo 3.5 \ 1
' expect: 4
