x.Name = 1
' error: 424 Object required
