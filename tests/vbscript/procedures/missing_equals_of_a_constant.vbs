Const kName "text"
' error: 1011 Expected '='
