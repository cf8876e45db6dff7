Property Get Value
End Property
' error: 1048 Must be defined inside a Class
