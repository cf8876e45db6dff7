x = 1
If x = 1 Then WScript.Echo "a" : WScript.Echo "b" Else WScript.Echo "c" : WScript.Echo "d"
' expect: a
' expect: b
x = 2
If x = 1 Then WScript.Echo "a" : WScript.Echo "b" Else WScript.Echo "c" : WScript.Echo "d"
' expect: c
' expect: d
If x = 1 Then WScript.Echo "never" Else
WScript.Echo "next line"
' expect: next line
