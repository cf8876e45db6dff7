WScript.Echo CDbl(#1/1/1900#), CDbl(#12/30/1899#), CDbl(#12/31/1899 6:00#)
' expect: 2 0 1.25
WScript.Echo CLng(#1/2/2003#)
' expect: 37623
