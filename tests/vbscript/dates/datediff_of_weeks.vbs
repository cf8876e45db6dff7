WScript.Echo DateDiff("ww", #1/4/2003#, #1/5/2003#)
' expect: 1
WScript.Echo DateDiff("w", #1/4/2003#, #1/5/2003#), DateDiff("w", #1/1/2003#, #1/15/2003#)
' expect: 0 2
