x = 1
Option Explicit
' error: 1024 Expected statement
