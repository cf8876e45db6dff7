Set d = CreateObject("Scripting.Dictionary")
a = Array(1, 2)
d.Add "list", a
a(0) = "changed"
WScript.Echo d("list")(0)
' expect: 1
