Set d = CreateObject("Scripting.Dictionary")
d.Add 1, "number"
d.Add "1", "text"
WScript.Echo d.Count, d(1), d("1")
' expect: 2 number text
