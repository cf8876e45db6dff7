Sub Fill(a, value)
    a(0) = value
End Sub

Sub Spare(ByVal a, value)
    a(0) = value
End Sub

Dim list(1)
Fill list, "new"
Spare list, "lost"
WScript.Echo list(0)
' expect: new
