' Creates a control, sets a text on the default ellipse and says how large its vector data may be.
Set control = CreateObject("Norvel_Ovaline.Norvel_OvalineCtrl")
control.SetDefaultSize 0
control.TextData = "HELLO WORLD"
WScript.Echo control.TextData & " on " & control.Width & " x " & control.Height & " mm, data of up to " & _
    CStr(CLng(control.GetVectorDataSize)) & " bytes"
