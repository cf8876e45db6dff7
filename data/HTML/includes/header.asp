<%
' Start and end of a page.

' Runs before each page: whether the client is a small touch screen, which gets plain mark-up.
Function startheaderasp()
    Dim browser
    fsg.Reset
    browser = Request.ServerVariables("HTTP_USER_AGENT") & ""
    IsTouchscreen = InStr(browser, "Velora") > 0 Or InStr(browser, "QNX") > 0
    startheaderasp = IsTouchscreen
End Function

' The value, or what the house's pages have in its place.
Function GivenOr(text, fallback)
    If text = "" Then
        GivenOr = fallback
    Else
        GivenOr = text
    End If
End Function

' A page up to its content. Calls in slideshow pages give all eight arguments, with texts that
' hold neither commas nor brackets: the refresh, the seventh, becomes the seconds to the next slide.
'   title       of the window and above the content
'   links       "No" for none
'   styleSheet  file name
'   heading     "No" leaves the title above the content out
'   logo        "Yes" shows who is logged in
'   onLoad      script that runs when the page has been loaded
'   refresh     seconds, 0 for never
'   background  colour
Function CustomHeader(title, links, styleSheet, heading, logo, onLoad, refresh, background)
    Response.Write "<html><head><title>" & title & "</title>"
    Response.Write "<link rel='stylesheet' type='text/css' href='/" & _
        GivenOr(styleSheet, "style.css") & "'>"
    If refresh & "" <> "0" And refresh & "" <> "" Then
        Response.Write "<meta http-equiv='Refresh' content='" & refresh & _
            "; URL=/VeloraSlideshow.asp'>"
    End If
    Response.Write "</head><body" & CellAttribute("bgcolor", background) & _
        CellAttribute("onload", onLoad) & ">"
    If UCase(links) <> "NO" Then Response.Write MenuRow()
    If UCase(heading) <> "NO" Then
        Response.Write "<table width='100%'><tr class='pagetitle'>" & _
            FormatCell(title, "left", "", "TABLEHEADER")
        If UCase(logo) = "YES" Then
            Response.Write FormatCell(SecureUser, "right", "", "TABLEHEADER")
        End If
        Response.Write "</tr></table>"
    End If
    CustomHeader = WrittenText()
End Function

' A page behind its content.
Function CustomFooter()
    Response.Write "<div class='footer'>"
    If IsSwitchedOn(HostSetting("Settings", "showhsversion", "0", "web_settings.ini")) Then
        Response.Write "Version: " & hs.Version
    End If
    Response.Write "</div></body></html>"
    CustomFooter = WrittenText()
End Function
%>
