name = "global"

Sub Test(name)
    name = name & "!"
    WScript.Echo name
End Sub

Test "argument"
' expect: argument!
WScript.Echo name
' expect: global
