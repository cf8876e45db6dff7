WScript.Echo "it is " & True & " and " & (1 > 2)
' expect: it is True and False
