<HTML>
<HEAD>
<TITLE>The time</TITLE>
</HEAD>
<BODY BGCOLOR="black" TEXT="white">
<TABLE WIDTH="100%" HEIGHT="440"><TR><TD ALIGN="center" VALIGN="middle">
<%
Dim moment
moment = Now
Response.Write "<FONT FACE='Arial' SIZE='7' COLOR='#FFFF99'><B>"
Response.Write Hour(moment) & ":" & Right("0" & Minute(moment), 2)
Response.Write "</B></FONT><BR><BR>"
Response.Write "<FONT FACE='Arial' SIZE='5'>"
Response.Write WeekdayName(Weekday(moment)) & ", " & Day(moment) & " "
Response.Write MonthName(Month(moment)) & " " & Year(moment)
Response.Write "</FONT><BR><BR><FONT FACE='Arial' SIZE='4'>"
If Hour(moment) < 12 Then
    Response.Write "Good morning."
ElseIf Hour(moment) < 18 Then
    Response.Write "Good afternoon."
Else
    Response.Write "Good evening."
End If
Response.Write "</FONT>"
%>
</TD></TR></TABLE>
</BODY>
</HTML>
