WScript.Echo TypeName(Now), TypeName(Date), TypeName(Time)
' expect: Date Date Date
WScript.Echo CStr(Now >= Date), CStr(Time < 1), CStr(CDbl(Date) = Int(CDbl(Now)))
' expect: True True True
