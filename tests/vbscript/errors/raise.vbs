On Error Resume Next
Err.Raise 1000, "my source", "my description"
WScript.Echo Err.Number, Err.Source, Err.Description
' expect: 1000 my source my description
