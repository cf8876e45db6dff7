Option Explicit

Sub Sort(items, low, high)
    Dim i, j, pivot, swapped
    i = low
    j = high
    pivot = items((low + high) \ 2)
    Do While i <= j
        Do While items(i) < pivot
            i = i + 1
        Loop
        Do While items(j) > pivot
            j = j - 1
        Loop
        If i <= j Then
            swapped = items(i)
            items(i) = items(j)
            items(j) = swapped
            i = i + 1
            j = j - 1
        End If
    Loop
    If low < j Then Sort items, low, j
    If i < high Then Sort items, i, high
End Sub

Dim numbers(199999), index, seed
seed = 42
For index = 0 To 199999
    seed = (seed * 1103 + 12345) Mod 65536
    numbers(index) = seed
Next
Sort numbers, 0, 199999
WScript.Echo numbers(0) & " " & numbers(100000) & " " & numbers(199999)
