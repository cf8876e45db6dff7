WScript.Echo Year(#1/1/29#), Year(#1/1/30#), Year(#1/1/99#), Year(#1/1/00#)
' expect: 2029 1930 1999 2000
