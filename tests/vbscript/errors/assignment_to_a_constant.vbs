Const kFixed = 1
On Error Resume Next
kFixed = 2
WScript.Echo kFixed
' expect: 1
