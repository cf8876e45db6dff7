Set r = New RegExp
r.Pattern = "b+"
WScript.Echo CStr(r.Test("abbbc")), CStr(r.Test("ac"))
' expect: True False
WScript.Echo r.Replace("abbcbb", "x")
' expect: axcbb
r.Global = True
WScript.Echo r.Replace("abbcbb", "x")
' expect: axcx
r.IgnoreCase = True
WScript.Echo r.Replace("aBbc", "x")
' expect: axc
