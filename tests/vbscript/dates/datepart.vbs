d = #8/17/2003 14:05:06#
WScript.Echo DatePart("yyyy", d), DatePart("q", d), DatePart("m", d), DatePart("d", d)
' expect: 2003 3 8 17
WScript.Echo DatePart("h", d), DatePart("n", d), DatePart("s", d)
' expect: 14 5 6
WScript.Echo DatePart("y", #2/1/2003#), DatePart("w", #1/5/2003#), DatePart("ww", #1/5/2003#)
' expect: 32 1 2
