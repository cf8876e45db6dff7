<%
' How the cells of a table look: for browsers that know a style sheet by its class, for the small
' ones in the cell itself. A look is a list "bold|colour of the text|colour behind it".

Function CellLook(cellClass)
    Select Case UCase(cellClass)
        Case "TABLECOLUMN"
            CellLook = "1|#FFFFFF|#31639C"
        Case "TABLEHEADER"
            CellLook = "1|#FFFFFF|#63639C"
        Case "TABLEROWODD"
            CellLook = "0|#000000|#C0C0C0"
        Case "TABLEROWEVEN"
            CellLook = "0|#000000|#949494"
        Case "TABLECELLCUSTOM"
            CellLook = "0|#FFFFFF|#000000"
        Case Else
            CellLook = "0||"
    End Select
End Function

' The attribute with its value and a blank in front; nothing for a value that is not given.
Function CellAttribute(name, text)
    If text = "" Then
        CellAttribute = ""
    Else
        CellAttribute = " " & name & "='" & text & "'"
    End If
End Function

' One cell of a table. IsTouchscreen is what the header functions have found out about the client.
Function FormatCell(text, align, colspan, cellClass)
    Dim look, content, place
    place = CellAttribute("colspan", colspan) & CellAttribute("align", align)
    If IsTouchscreen Then
        look = Split(CellLook(cellClass), "|")
        content = text
        If look(0) = "1" Then content = "<b>" & text & "</b>"
        FormatCell = "<td" & place & CellAttribute("bgcolor", look(2)) & ">" & _
            "<font face='Verdana, Arial, sans-serif' size='2'" & _
            CellAttribute("color", look(1)) & ">" & content & "</font></td>"
    Else
        FormatCell = "<td" & CellAttribute("class", cellClass) & place & ">" & text & "</td>"
    End If
End Function
%>
