WScript.Echo StrReverse("abc"), "[" & StrReverse("") & "]"
' expect: cba []
