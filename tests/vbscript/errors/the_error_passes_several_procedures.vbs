Sub Inner
    Err.Raise 77, "inner", "deep"
End Sub

Sub Outer
    Inner
    WScript.Echo "never"
End Sub

On Error Resume Next
Outer
WScript.Echo Err.Number, Err.Description
' expect: 77 deep
