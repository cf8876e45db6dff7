Set d = CreateObject("Scripting.Dictionary")
WScript.Echo TypeName(d)
' expect: Dictionary
d.NoSuchMember 1
' error: 438 Object doesn't support this property or method
