Set d = CreateObject("Scripting.Dictionary")
d.Add "x", 1
d.Add "y", 2
For Each key In d
    WScript.Echo key, d(key)
Next
' expect: x 1
' expect: y 2
