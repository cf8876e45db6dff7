<%
' The row of links on top of a page.

Function MenuLink(place, text)
    MenuLink = "<a href='" & place & "'>" & text & "</a> "
End Function

' A page of the house's own, from settings.ini: a name as it stands, or a whole address.
Function CustomPagePlace(file)
    If InStr(file, "http") > 0 Then
        CustomPagePlace = file
    Else
        CustomPagePlace = "/" & file
    End If
End Function

Function MenuRow()
    Dim links, number, text, file
    links = MenuLink("/status", "Status")
    For number = 1 To 4
        text = HostSetting("Settings", "gCustomPageDesc" & number, "", "settings.ini")
        file = HostSetting("Settings", "gCustomPageFile" & number, "", "settings.ini")
        If text <> "" And file <> "" Then links = links & MenuLink(CustomPagePlace(file), text)
    Next
    MenuRow = "<p>" & links & "</p>"
End Function
%>
