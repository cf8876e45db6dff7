Function Early(x)
    Early = "set"
    If x Then Exit Function
    Early = "late"
End Function

WScript.Echo Early(True), Early(False)
' expect: set late
