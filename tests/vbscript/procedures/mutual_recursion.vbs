Function IsEven(n)
    If n = 0 Then IsEven = True Else IsEven = IsOdd(n - 1)
End Function

Function IsOdd(n)
    If n = 0 Then IsOdd = False Else IsOdd = IsEven(n - 1)
End Function

WScript.Echo CStr(IsEven(10)), CStr(IsOdd(7)), CStr(IsEven(3))
' expect: True True False
