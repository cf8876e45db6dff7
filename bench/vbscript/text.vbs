Option Explicit

Dim line, text, i, place, found, words, round, letters
line = "The quick brown fox jumps over the lazy dog; "
text = ""
For i = 1 To 4600
    text = text & line
Next

found = 0
letters = 0
For round = 1 To 20
    place = InStr(1, text, "lazy")
    Do While place > 0
        found = found + 1
        place = InStr(place + 1, text, "lazy")
    Loop
    words = Split(text, " ")
    For i = 0 To UBound(words)
        letters = letters + Len(words(i))
    Next
Next
WScript.Echo Len(text) & " " & found & " " & letters
