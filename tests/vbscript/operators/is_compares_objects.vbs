Set a = New Thing
Set b = a
Set c = New Thing
WScript.Echo CStr(a Is b), CStr(a Is c), CStr(Nothing Is Nothing)
' expect: True False True
WScript.Echo CStr(Not a Is Nothing)
' expect: True

Class Thing
End Class
