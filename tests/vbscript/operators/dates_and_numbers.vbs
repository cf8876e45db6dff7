d = #1/2/2003#
WScript.Echo d + 1, TypeName(d + 1)
' expect: 1/3/2003 Date
WScript.Echo d - 1, TypeName(d - 1)
' expect: 1/1/2003 Date
WScript.Echo d - #1/1/2003#, TypeName(d - #1/1/2003#)
' expect: 1 Double
WScript.Echo #1/1/2003# + #6:00#
' expect: 1/1/2003 6:00:00 AM
