Dim a(1, 1)
a(0, 0) = "a" : a(1, 0) = "b" : a(0, 1) = "c" : a(1, 1) = "d"
For Each x In a
    text = text & x
Next
WScript.Echo text
' expect: abcd
