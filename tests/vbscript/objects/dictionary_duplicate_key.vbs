Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d.Add "a", 2
' error: 457 This key is already associated with an element of this collection
