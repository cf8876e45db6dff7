WScript.Echo WeekdayName(1), WeekdayName(2, True), WeekdayName(1, False, vbMonday)
' expect: Sunday Mon Monday
WScript.Echo MonthName(1), MonthName(12), MonthName(5, True), MonthName(9, True)
' expect: January December May Sep
