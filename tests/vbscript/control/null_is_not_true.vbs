If Null Then WScript.Echo "never" Else WScript.Echo "else"
' expect: else
