WScript.Echo InStrRev("abcabc", "b"), InStrRev("abcabc", "b", 4), InStrRev("abc", "x")
' expect: 5 2 0
WScript.Echo InStrRev("abcABC", "b", -1, vbTextCompare)
' expect: 5
