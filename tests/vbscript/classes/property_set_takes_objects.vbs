Class Box
    Private content_

    Public Property Set Content(value)
        Set content_ = value
        WScript.Echo "set"
    End Property

    Public Property Let Content(value)
        content_ = value
        WScript.Echo "let"
    End Property

    Public Property Get Content
        If IsObject(content_) Then Set Content = content_ Else Content = content_
    End Property
End Class

Set b = New Box
Set b.Content = New Box
' expect: set
WScript.Echo TypeName(b.Content)
' expect: Box
b.Content = 5
' expect: let
WScript.Echo b.Content
' expect: 5
