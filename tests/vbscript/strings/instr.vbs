WScript.Echo InStr("abcabc", "b"), InStr("abcabc", "x"), InStr(3, "abcabc", "b")
' expect: 2 0 5
WScript.Echo InStr("abc", ""), InStr("", "a"), InStr(10, "abc", "a"), InStr("", "")
' expect: 1 0 0 0
WScript.Echo InStr("ABC", "b"), InStr(1, "ABC", "b", vbTextCompare), InStr(1, "ABC", "b", vbBinaryCompare)
' expect: 0 2 0
WScript.Echo InStr(2, "abc", "")
' expect: 2
