WScript.Echo Join(Array("a", "b", "c"), "-"), Join(Array("a", "b")), Join(Array(1, True, 2.5), ",")
' expect: a-b-c a b 1,True,2.5
WScript.Echo "[" & Join(Array(), ",") & "]", Join(Array("a", "b"), "")
' expect: [] ab
