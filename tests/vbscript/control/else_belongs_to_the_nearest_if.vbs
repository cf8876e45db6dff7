If True Then If False Then WScript.Echo "inner" Else WScript.Echo "else of the inner"
' expect: else of the inner
