<%
' The state of the house's devices, as many as fit on the screen of a unit.
Const kMostRows = 14
Dim devices, device, code, state, rows, rowClass
Response.Write CustomHeader("The house", "No", "", "", "Yes", "", 0, "black")
Response.Write "<center><table width='600' border='0' cellpadding='3'><tr>"
Response.Write FormatCell("Place", "left", "1", "TABLECOLUMN")
Response.Write FormatCell("Device", "left", "1", "TABLECOLUMN")
Response.Write FormatCell("State", "left", "1", "TABLECOLUMN")
Response.Write "</tr>"
rows = 0
Set devices = hs.GetDeviceEnumerator
Do While Not devices.Finished
    Set device = devices.GetNext
    If device Is Nothing Then Exit Do
    If rows >= kMostRows Then Exit Do
    code = device.hc & device.dc
    state = hs.DeviceString(code)
    If state = "" Then
        Select Case hs.DeviceStatus(code)
            Case 2
                state = "On"
            Case 3
                state = "Off"
            Case Else
                state = "&nbsp;"
        End Select
    End If
    rowClass = "TABLEROWEVEN"
    If rows Mod 2 = 1 Then rowClass = "TABLEROWODD"
    Response.Write "<tr>" & FormatCell(device.Location, "left", "1", rowClass)
    Response.Write FormatCell(device.Name, "left", "1", rowClass)
    Response.Write FormatCell(state, "left", "1", rowClass) & "</tr>"
    rows = rows + 1
Loop
Response.Write "</table></center>"
Response.Write CustomFooter()
%>
