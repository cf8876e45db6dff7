On Error Resume Next
x = 1 / 0
On Error GoTo 0
WScript.Echo "still here"
' expect: still here
x = 1 / 0
' error: 11 Division by zero
