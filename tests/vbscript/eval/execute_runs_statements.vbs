Execute "x = 5 : y = x * 2"
WScript.Echo x, y
' expect: 5 10
Execute "If x = 5 Then" & vbCrLf & "WScript.Echo ""five""" & vbCrLf & "End If"
' expect: five
