Function AddOne(X)
    addone = x + 1
End Function

WSCRIPT.ECHO ADDONE(1)
' expect: 2
