Function Which()
    Which = "first"
End Function

WScript.Echo Which()
' expect: second

Function Which()
    Which = "second"
End Function
