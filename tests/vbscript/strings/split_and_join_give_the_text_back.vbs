text = "one;two;;four"
WScript.Echo CStr(Join(Split(text, ";"), ";") = text)
' expect: True
