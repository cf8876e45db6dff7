On Error Resume Next
Execute "x = "
WScript.Echo Err.Number, Err.Description
' expect: 1002 Syntax error
Err.Clear
y = Eval("1 +")
WScript.Echo Err.Number
' expect: 1002
