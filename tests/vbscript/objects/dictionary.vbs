Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d.Add "b", 2
WScript.Echo d.Count, d.Item("a"), d("b"), CStr(d.Exists("a")), CStr(d.Exists("x"))
' expect: 2 1 2 True False
d("a") = 10
d.Item("c") = 30
WScript.Echo d("a"), d("c"), d.Count
' expect: 10 30 3
d.Remove "a"
WScript.Echo Join(d.Keys, ","), Join(d.Items, ",")
' expect: b,c 2,30
d.RemoveAll
WScript.Echo d.Count
' expect: 0
