WScript.Echo DateValue("1/2/2003 3:04:05 PM")
' expect: 1/2/2003
WScript.Echo TimeValue("1/2/2003 3:04:05 PM")
' expect: 3:04:05 PM
