Option Explicit

Sub Test
    x = 1
End Sub

WScript.Echo "before"
' expect: before
Test
' error: 500 Variable is undefined
