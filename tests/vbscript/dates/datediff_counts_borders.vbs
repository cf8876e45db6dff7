WScript.Echo DateDiff("yyyy", #12/31/2002#, #1/1/2003#)
' expect: 1
WScript.Echo DateDiff("m", #1/31/2003#, #2/1/2003#)
' expect: 1
WScript.Echo DateDiff("d", #1/1/2003#, #12/31/2003#), DateDiff("d", #1/2/2003#, #1/1/2003#)
' expect: 364 -1
WScript.Echo DateDiff("h", #1:59:00#, #2:01:00#), DateDiff("n", #1:00:59#, #1:01:00#), DateDiff("s", #1:00:00#, #1:01:01#)
' expect: 1 1 61
WScript.Echo DateDiff("q", #3/31/2003#, #4/1/2003#)
' expect: 1
