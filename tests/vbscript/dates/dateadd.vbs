WScript.Echo DateAdd("d", 1, #12/31/2003#)
' expect: 1/1/2004
WScript.Echo DateAdd("m", 1, #1/31/2003#), DateAdd("m", 1, #1/31/2004#)
' expect: 2/28/2003 2/29/2004
WScript.Echo DateAdd("yyyy", 1, #2/29/2004#), DateAdd("q", 1, #1/1/2003#)
' expect: 2/28/2005 4/1/2003
WScript.Echo DateAdd("ww", 1, #1/1/2003#), DateAdd("w", 1, #1/1/2003#), DateAdd("y", 1, #1/1/2003#)
' expect: 1/8/2003 1/2/2003 1/2/2003
WScript.Echo DateAdd("h", 25, #1/1/2003#)
' expect: 1/2/2003 1:00:00 AM
WScript.Echo DateAdd("n", -1, #1/1/2003#)
' expect: 12/31/2002 11:59:00 PM
WScript.Echo DateAdd("s", 61, #1/1/2003#)
' expect: 1/1/2003 12:01:01 AM
