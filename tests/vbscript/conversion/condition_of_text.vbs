text = "True"
If text Then WScript.Echo "yes"
' expect: yes
text = "0"
If text Then WScript.Echo "yes" Else WScript.Echo "no"
' expect: no
text = ""
If text Then WScript.Echo "never"
' error: 13 Type mismatch
