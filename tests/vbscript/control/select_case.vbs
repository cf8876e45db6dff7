Function Name(x)
    Select Case x
        Case 1, 2
            Name = "small"
        Case "text"
            Name = "text"
        Case Else
            Name = "other"
    End Select
End Function

WScript.Echo Name(1), Name(2), Name("text"), Name(3)
' expect: small small text other
