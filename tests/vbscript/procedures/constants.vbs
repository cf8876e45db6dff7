Const kNumber = 5, kText = "five"
Const kNegative = -1.5
WScript.Echo kNumber, kText, kNegative
' expect: 5 five -1.5

Sub Test
    Const kInside = True
    WScript.Echo CStr(kInside), kNumber
End Sub

Test
' expect: True 5
