Set d = CreateObject("Scripting.Dictionary")
d.CompareMode = vbTextCompare
d.Add "Key", 1
WScript.Echo CStr(d.Exists("KEY")), d("key")
' expect: True 1
