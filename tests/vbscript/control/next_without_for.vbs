Next
' error: 1055 Unexpected 'Next'
