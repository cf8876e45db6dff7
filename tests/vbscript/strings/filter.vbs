found = Filter(Array("apple", "banana", "grape"), "ap")
WScript.Echo UBound(found), found(0), found(1)
' expect: 1 apple grape
found = Filter(Array("apple", "banana", "grape"), "ap", False)
WScript.Echo UBound(found), found(0)
' expect: 0 banana
WScript.Echo UBound(Filter(Array("a"), "x"))
' expect: -1
found = Filter(Array("APple", "b"), "ap", True, vbTextCompare)
WScript.Echo UBound(found)
' expect: 0
