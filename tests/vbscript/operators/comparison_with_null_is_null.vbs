WScript.Echo CStr(IsNull(Null = Null))
' expect: True
WScript.Echo CStr(IsNull(1 < Null))
' expect: True
If Null = Null Then
    WScript.Echo "same"
Else
    WScript.Echo "not known to be the same"
End If
' expect: not known to be the same
