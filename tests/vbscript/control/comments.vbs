' nothing
Rem nothing either
x = 1 ' behind a statement
y = 2 : Rem behind a colon
WScript.Echo x + y ' the sum
' expect: 3
<!-- hidden from old browsers
WScript.Echo "'not a comment"
' expect: 'not a comment
-->
