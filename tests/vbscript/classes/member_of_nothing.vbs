Set x = Nothing
x.Name = 1
' error: 91 Object variable not set
