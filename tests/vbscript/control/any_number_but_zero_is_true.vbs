If 5 Then WScript.Echo "five"
' expect: five
If 0 Then WScript.Echo "never" Else WScript.Echo "zero"
' expect: zero
If Empty Then WScript.Echo "never" Else WScript.Echo "empty"
' expect: empty
