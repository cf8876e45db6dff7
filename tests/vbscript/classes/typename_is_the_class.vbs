Class Thing
End Class

Set t = New Thing
WScript.Echo TypeName(t), VarType(t)
' expect: Thing 9
