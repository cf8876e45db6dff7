WScript.Echo Left("abcdef", 2), Right("abcdef", 2), Mid("abcdef", 3, 2), Mid("abcdef", 3)
' expect: ab ef cd cdef
WScript.Echo "[" & Left("abc", 10) & Right("abc", 10) & Mid("abc", 10) & Left("abc", 0) & "]"
' expect: [abcabc]
