Set x = New Missing
' error: 506 Class not defined
