Set d = CreateObject("Scripting.Dictionary")
Set e = d
e.Add "k", "v"
WScript.Echo d("k")
' expect: v
