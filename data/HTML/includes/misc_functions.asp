<%
' What all pages need: the builder of texts, the output of these files, and who asks.

' Collects the pieces of a page and joins them once, at the end.
Class FastString
    Private pieces()
    Private nextPiece

    Private Sub Class_Initialize()
        Reset
    End Sub

    Public Sub Add(piece)
        If nextPiece > UBound(pieces) Then
            ReDim Preserve pieces(UBound(pieces) + 100)
        End If
        pieces(nextPiece) = piece & ""
        nextPiece = nextPiece + 1
    End Sub

    Public Property Get Value()
        Value = Join(pieces, "")
    End Property

    Public Sub Reset()
        Erase pieces
        ReDim pieces(100)
        nextPiece = 1
    End Sub
End Class

' Whatever these files write is collected here; the functions below hand it on as their result.
Dim fsg
Set fsg = New FastString

' Of the client that asks for the present page.
Dim IsTouchscreen, SecureLevel, SecureUser

' What has been written since the last call.
Function WrittenText()
    WrittenText = fsg.Value
    fsg.Reset
End Function

' A setting of the host without the quotes that its file may have.
Function HostSetting(section, key, fallback, file)
    HostSetting = Replace(hs.GetIniSetting(section, key, fallback, file), """", "")
End Function

Function IsSwitchedOn(text)
    Select Case UCase(Trim(text))
        Case "1", "-1", "YES", "TRUE", "ON"
            IsSwitchedOn = True
        Case Else
            IsSwitchedOn = False
    End Select
End Function

' Runs once, before the first page.
Sub startmiscfunctionsasp()
    fsg.Reset
    IsTouchscreen = False
    SecureLevel = 0
    SecureUser = ""
End Sub

' Runs before each page. Where the web server has asked for a name, it counts.
Sub SecurityCheck()
    Dim name
    Select Case UCase(HostSetting("Settings", "usesecurity", "NONE", "web_settings.ini"))
        Case "BASIC"
            name = UCase(Request.ServerVariables("AUTH_USER") & "")
            If name = "" Or name = "GUEST" Then
                SecureLevel = 0
                SecureUser = "GUEST"
            ElseIf Right(name, 3) = "SET" Then
                SecureLevel = 10
                SecureUser = "LOCAL"
            Else
                SecureLevel = 10
                SecureUser = name
            End If
        Case "NONE"
            SecureLevel = 10
            SecureUser = "NO SECURITY"
        Case Else
            SecureLevel = 0
            SecureUser = "None"
    End Select
End Sub
%>
