Class Node
    Public Value, Rest
End Class

Set list = Nothing
For i = 1 To 3
    Set n = New Node
    n.Value = i
    Set n.Rest = list
    Set list = n
Next
Do Until list Is Nothing
    text = text & list.Value
    Set list = list.Rest
Loop
WScript.Echo text
' expect: 321
