d = #1/2/2003#
WScript.Echo "on " & d & " at " & #15:00#
' expect: on 1/2/2003 at 3:00:00 PM
