<%@ Language=VBScript %>
<% Option Explicit
' The start page of the house: where to go, and how its devices are.

Const kPluginFile = "zynVeloraUtilities.ini"
Const kPluginSection = "Velora Utilities"

' The plug-in's own web server, "" when it has none.
Function PluginServer()
    Dim port
    port = hs.GetIniSetting(kPluginSection, "ServerPort", "", kPluginFile)
    PluginServer = ""
    If hs.GetIniSetting(kPluginSection, "TCPServerOption", "0", kPluginFile) <> "1" And port <> "" Then
        PluginServer = "http://" & hs.GetIniSetting(kPluginSection, "HomeseerIP", _
            Request.ServerVariables("SERVER_NAME"), kPluginFile) & ":" & port
    End If
End Function

' A device's own words, or what its status means.
Function StateOf(code)
    StateOf = hs.DeviceString(code)
    If StateOf <> "" Then Exit Function
    Select Case hs.DeviceStatus(code)
        Case 2
            StateOf = "On"
        Case 3
            StateOf = "Off"
        Case Else
            StateOf = "&nbsp;"
    End Select
End Function

Dim devices, device, address
address = PluginServer()
%><!DOCTYPE html>
<html>
<head>
<title>The house</title>
<meta name="viewport" content="width=device-width, initial-scale=1">
<style>
body { font-family: Verdana, Arial, sans-serif; margin: 2em; color: #222; }
table { border-collapse: collapse; }
th { background: #31639C; color: #FFF; text-align: left; }
th, td { padding: 4px 12px; }
tr:nth-child(even) td { background: #EEE; }
nav a { margin-right: 1.5em; }
</style>
</head>
<body>
<h1>The house</h1>
<nav>
<a href="/VeloraSlideshow.asp">Slideshow</a>
<% If address <> "" Then %><a href="<%= Server.HTMLEncode(address) %>/status">Status and setup</a>
<% End If %><a href="/links_touchscreen.htm">Links of the units</a>
</nav>
<h2>Devices</h2>
<% If hs.DeviceCount = 0 Then %>
<p>There are none yet.</p>
<% Else %>
<table>
<tr><th>Place</th><th>Device</th><th>Code</th><th>State</th></tr>
<%
    Set devices = hs.GetDeviceEnumerator
    Do Until devices.Finished
        Set device = devices.GetNext
        If Not device Is Nothing Then
%><tr><td><%= Server.HTMLEncode(device.Location) %></td><td><%= Server.HTMLEncode(device.Name) %></td><td><%= Server.HTMLEncode(device.hc & device.dc) %></td><td><%= StateOf(device.hc & device.dc) %></td></tr>
<%
        End If
    Loop
%>
</table>
<% End If %>
<p><%= FormatDateTime(Now) %></p>
</body>
</html>
