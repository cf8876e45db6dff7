Set x = 5
' error: 424 Object required
