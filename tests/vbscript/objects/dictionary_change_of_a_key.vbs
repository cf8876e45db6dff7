Set d = CreateObject("Scripting.Dictionary")
d.Add "old", 1
d.Key("old") = "new"
WScript.Echo CStr(d.Exists("old")), d("new")
' expect: False 1
