Class Node
    Public Name, NextNode
End Class

Set a = New Node
Set a.NextNode = New Node
Set a.NextNode.NextNode = New Node
a.NextNode.NextNode.Name = "third"
WScript.Echo a.NextNode.NextNode.Name, TypeName(a.NextNode.NextNode.NextNode)
' expect: third Empty
