ExecuteGlobal "Class Made" & vbCrLf & "Public Name" & vbCrLf & "End Class"
Set m = Eval("New Made")
m.Name = "late"
WScript.Echo m.Name
' expect: late
