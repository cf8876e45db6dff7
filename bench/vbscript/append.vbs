Option Explicit

Function Build(pieces)
    Dim i, text
    text = ""
    For i = 1 To pieces
        text = text & "line " & i & vbCrLf
    Next
    Build = text
End Function

Dim round, total
For round = 1 To 30
    total = total + Len(Build(20000))
Next
WScript.Echo total
