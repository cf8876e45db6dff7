Set x = CreateObject("No.Such.Class")
' error: 429 ActiveX component can't create object
