Dim a(3)
a(2) = "two"
WScript.Echo a(1.5), a(2.5), a("2")
' expect: two two two
