Option Explicit

Sub Fill(size)
    Dim table, i, found
    Set table = CreateObject("Scripting.Dictionary")
    For i = 1 To size
        table.Add "key" & i, i
    Next
    found = 0
    For i = 1 To size
        If table.Exists("key" & i) Then found = found + table.Item("key" & i) Mod 10
    Next
    WScript.Echo table.Count & " " & found
End Sub

Dim round
For round = 1 To 5
    Fill 100000
Next
