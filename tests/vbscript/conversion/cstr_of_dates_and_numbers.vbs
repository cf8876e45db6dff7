WScript.Echo CStr(#1/2/2003#) & "|" & CStr(-0.5) & "|" & CStr(&H10)
' expect: 1/2/2003|-0.5|16
