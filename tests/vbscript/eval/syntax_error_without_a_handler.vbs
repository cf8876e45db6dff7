Execute "For"
' error: 1010 Expected identifier
