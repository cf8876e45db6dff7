' Between variables a number is less than every text; a literal has the variable converted.
number = 5
text = "5"
WScript.Echo number = "5", 5 = text, text = 5, number = text
' expect: True True True False
WScript.Echo number > "40", text < 40, 40 > text, "4" < number
' expect: True True True True
If text < 10 Then WScript.Echo "as numbers"
' expect: as numbers
If number > "10" Then WScript.Echo "as texts"
' expect: as texts
' The values of a Select Case compare as variables do.
Select Case text
    Case 5
        WScript.Echo "a number"
    Case Else
        WScript.Echo "a text"
End Select
' expect: a text
Const five = 5
WScript.Echo text = five, text = -5, "1" = 1
' expect: True False True
On Error Resume Next
word = "many"
found = (word > 5)
WScript.Echo Err.Number
' expect: 13
