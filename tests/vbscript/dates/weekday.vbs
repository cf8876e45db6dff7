WScript.Echo Weekday(#1/5/2003#), Weekday(#1/4/2003#)
' expect: 1 7
WScript.Echo Weekday(#1/5/2003#, vbMonday), Weekday(#1/6/2003#, vbMonday)
' expect: 7 1
WScript.Echo vbSunday, vbMonday, vbSaturday
' expect: 1 2 7
