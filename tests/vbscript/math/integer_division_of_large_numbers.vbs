WScript.Echo 2147483647 \ 2, TypeName(2147483647 \ 2)
' expect: 1073741823 Long
x = 3000000000
WScript.Echo x \ 2
' error: 6 Overflow
