For Each x In 5
Next
' error: 451 Object not a collection
