Sub Outer
    Sub Inner
    End Sub
End Sub
' error: 1002 Syntax error
