WScript.Echo "say ""hello"""
' expect: say "hello"
WScript.Echo """"
' expect: "
