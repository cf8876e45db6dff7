Dim x
Dim X
' error: 1041 Name redefined
