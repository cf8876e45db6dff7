Option Explicit

Function Count(rounds)
    Dim i, j, k, total
    total = 0
    For i = 1 To rounds
        For j = 1 To 200
            For k = 1 To 200
                If (i + j + k) Mod 7 = 0 Then total = total + k
            Next
        Next
    Next
    Count = total
End Function

WScript.Echo Count(250)
