d = #12/31/2003 23:59:58#
WScript.Echo Year(d), Month(d), Day(d), Hour(d), Minute(d), Second(d)
' expect: 2003 12 31 23 59 58
