Set d = CreateObject("Scripting.Dictionary")
x = d("missing")
WScript.Echo TypeName(x), d.Count
' expect: Empty 1
