Class Thing
End Class

Set t = New Thing
WScript.Echo t.Missing
' error: 438 Object doesn't support this property or method
